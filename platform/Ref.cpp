#include "platform/Ref.h"

#include <cxxabi.h>

#include <cstdlib>

namespace {

std::string ReadableName(const std::type_info& type) {
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(abi::__cxa_demangle(type.name(), nullptr, nullptr, &status),
                                                           &std::free);
    return name ? name.get() : type.name();
}

std::string Text(const std::string& wanted) { return "NilObjectException: no " + wanted; }

}  // namespace

NilObjectException::NilObjectException(const std::type_info& type, const std::string& why)
    : std::runtime_error(why.empty() ? Text(ReadableName(type)) : why + " (" + Text(ReadableName(type)) + ")"),
      why_(why) {}

NilObjectException::NilObjectException(const std::string& wanted) : std::runtime_error(Text(wanted)) {}
