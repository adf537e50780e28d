#include "platform/Ref.h"

#include <cxxabi.h>

#include <cstdlib>

namespace {

std::string ReadableName(const std::type_info& type) {
    char* const demangled = abi::__cxa_demangle(type.name(), nullptr, nullptr, nullptr);
    const std::unique_ptr<char, decltype(&std::free)> owner(demangled, &std::free);
    return demangled ? demangled : type.name();
}

std::string Message(const std::string& wanted, const std::string& why) {
    const std::string message = "NilObjectException: no " + wanted;
    return why.empty() ? message : why + " (" + message + ")";
}

}  // namespace

NilObjectException::NilObjectException(const std::string& wanted, const std::string& why)
    : std::runtime_error(Message(wanted, why)), why_(why) {}

NilObjectException::NilObjectException(const std::type_info& type, const std::string& why)
    : NilObjectException(ReadableName(type), why) {}
