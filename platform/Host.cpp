#include "platform/Host.h"

#include <utility>

#include "platform/Ref.h"

namespace {

std::unique_ptr<Host> current;

}  // namespace

Host& Host::Current() {
    if (!current) throw NilObjectException(typeid(Host));
    return *current;
}

void Host::Install(std::unique_ptr<Host> host) { current = std::move(host); }
double Microseconds() { return Host::Current().Microseconds(); }
void Beep() { Host::Current().Beep(); }
void MsgBox(const std::string& text) { Host::Current().MsgBox(text); }
bool SelectColor(Color& color, const std::string& prompt) { return Host::Current().SelectColor(color, prompt); }
void ShowURL(const std::string& url) { Host::Current().ShowURL(url); }
