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

/// Somebody else's object, whose members are called by name. A name is looked up once. What the object
/// reports is thrown as Error with its status, source and description; MissingMember when it does not know
/// the name.
class Object {
public:
    using Arguments = std::vector<Variant>;

    /// `name` says in errors which object it is. Throws Error when there is no object.
    Object(Microsoft::WRL::ComPtr<IDispatch> object, std::string name);

    /// A property's value, or the result of a function.
    Variant Get(const wchar_t* member, Arguments arguments = {}) const;
    /// The same for the default member.
    Variant GetDefault(Arguments arguments) const;
    /// An operation without a result.
    void Call(const wchar_t* member, Arguments arguments = {}) const;
    void Put(const wchar_t* member, Variant value) const;
    /// A property's value as an object; throws Error when it is none.
    Object AsObject(const wchar_t* member, Arguments arguments = {}) const;

    IDispatch* Pointer() const;
    /// Whether it is an object of a script, which sees what it changes by reference as variants alone.
    bool IsOfScript() const;
    /// Whether it is the same object, whichever way it was come by.
    bool Is(IDispatch* other) const;

private:
    struct Known;

    static Variant Invoke(const std::shared_ptr<Known>& known, DISPID id, WORD kind, Arguments& arguments,
                          const wchar_t* member);

    std::shared_ptr<Known> known_;
};

}  // namespace lumarin::automation
