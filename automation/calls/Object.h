#pragma once

#include "automation/calls/Values.h"
#include "base/Error.h"

#include <string>
#include <utility>
#include <vector>

namespace lumarin::automation {

/// An object has no member of a name.
class MissingMember : public Error {
public:
    MissingMember(const std::string& object, const std::string& member)
        : Error(DISP_E_UNKNOWNNAME, object, "The host's " + object + " has no member \"" + member + "\"") {}
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

    const std::string& Name() const { return name_; }
    IDispatch* Get() const { return object_.Get(); }

private:
    DISPID Find(const wchar_t* member) const;
    DISPID LookUp(const wchar_t* member) const;
    Variant Invoke(DISPID id, WORD kind, Arguments& arguments, const wchar_t* member) const;
    std::string Named(const wchar_t* member) const;

    Microsoft::WRL::ComPtr<IDispatch> object_;
    std::string name_;
    mutable std::vector<std::pair<std::wstring, DISPID>> known_;
};

}  // namespace lumarin::automation
