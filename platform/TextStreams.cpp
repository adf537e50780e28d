#include "platform/TextStreams.h"

#include <sstream>

std::string TextInputStream::ReadAll() {
    std::ostringstream contents;
    contents << file_.rdbuf();
    return std::move(contents).str();
}

void TextOutputStream::WriteLine(std::string_view text) { file_ << text << '\n'; }
