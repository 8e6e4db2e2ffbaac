#pragma once

#include "automation/calls/Values.h"
#include "base/Error.h"

#include <memory>
#include <string>
#include <vector>

namespace lumarin::automation {

/// An object has no member of a name.
class MissingMember : public Error {
public:
    MissingMember(const std::string& object, const std::string& member)
        : Error(DISP_E_UNKNOWNNAME, object, "The host's " + object + " has no member \"" + member + "\"") {}
};

/// A member takes another number of arguments than it was called with; nothing of it has run.
class WrongArgumentCount : public Error {
public:
    using Error::Error;
};

/// A member's name: a literal, known by its place, so that no letters are compared call by call.
class MemberName {
public:
    consteval MemberName(const wchar_t* literal) : text_(literal) {}
    const wchar_t* Text() const { return text_; }
    /// For texts: members have plain names.
    std::string Plain() const;
    bool operator==(const MemberName&) const = default;

private:
    const wchar_t* text_;
};

/// Somebody else's object, whose members are called by name. A name is looked up once. What the object
/// reports is thrown as Error with its status, source and description; MissingMember when it does not know
/// the name. Used on one thread.
class Object {
public:
    using Arguments = std::vector<Variant>;

    /// `name` says in errors which object it is. Throws Error when there is no object.
    Object(Microsoft::WRL::ComPtr<IDispatch> object, std::string name);
    Object(const Object& other);
    Object& operator=(const Object& other);
    ~Object();

    /// A property's value, or the result of a function.
    Variant Get(MemberName member) const;
    Variant Get(MemberName member, const Arguments& arguments) const;
    /// The same for the default member.
    Variant GetDefault(const Arguments& arguments) const;
    /// An operation without a result.
    void Call(MemberName member) const;
    void Call(MemberName member, const Arguments& arguments) const;
    void Put(MemberName member, const Variant& value) const;
    /// A property's value as an object; throws Error when it is none.
    Object AsObject(MemberName member, const Arguments& arguments = {}) const;

    IDispatch* Pointer() const;
    /// Whether it is an object of a script, which sees what it changes by reference as variants alone.
    bool IsOfScript() const;
    /// Whether it is the same object, whichever way it was come by.
    bool Is(IDispatch* other) const;

private:
    struct Known;

    Variant Invoke(DISPID id, WORD kind, const Arguments& arguments, MemberName member) const;
    Variant Invoke(DISPID id, WORD kind, DISPPARAMS& parameters, MemberName member) const;

    Microsoft::WRL::ComPtr<Known> known_;
};

}  // namespace lumarin::automation
