#pragma once

#include <cstddef>
#include <memory>
#include <stdexcept>
#include <string>
#include <typeinfo>
#include <utility>

/// Thrown when a nil reference is dereferenced or a named object doesn't exist.
class NilObjectException : public std::runtime_error {
  public:
    /// Makes what() name the missing object, `wanted` or `type`, after the reason `why` if there is one.
    explicit NilObjectException(const std::string& wanted, const std::string& why = "");
    explicit NilObjectException(const std::type_info& type, const std::string& why = "");

    /// Returns the reason alone, in words for the user; empty if none is known.
    const std::string& Why() const { return why_; }

  private:
    std::string why_;
};

/// A reference-counted pointer to an object of the toolkit. It may be nil: then it converts to false, and
/// dereferencing it throws NilObjectException.
template <class T>
class Ref {
  public:
    Ref() = default;
    Ref(std::nullptr_t) {}
    template <class U>
    requires std::is_convertible_v<U*, T*> Ref(std::shared_ptr<U> object) : object_(std::move(object)) {}
    template <class U>
    requires std::is_convertible_v<U*, T*> Ref(const Ref<U>& other) : object_(other.Shared()) {}

    /// Returns a nil reference with a reason, a sentence for the user that NilObjectException will contain.
    static Ref Nil(std::string why) {
        Ref nil;
        nil.why_ = std::make_shared<const std::string>(std::move(why));
        return nil;
    }
    /// Returns a copy. If it is nil with a reason, the sentence `consequence` is appended to the reason.
    Ref IfNil(const std::string& consequence) const { return why_ ? Nil(*why_ + " " + consequence) : *this; }

    T* operator->() const { return &**this; }
    T& operator*() const {
        if (!object_) throw NilObjectException(typeid(T), why_ ? *why_ : "");
        return *object_;
    }
    explicit operator bool() const { return object_ != nullptr; }

    const std::shared_ptr<T>& Shared() const { return object_; }

  private:
    std::shared_ptr<T> object_;
    std::shared_ptr<const std::string> why_;
};

template <class T, class... Arguments>
Ref<T> MakeRef(Arguments&&... arguments) {
    return Ref<T>(std::make_shared<T>(std::forward<Arguments>(arguments)...));
}
