#include "automation/calls/Object.h"

#include "automation/calls/Failure.h"

#include <dispex.h>

#include <algorithm>

namespace lumarin::automation {

namespace {

constexpr LCID AnyLanguage = LOCALE_USER_DEFAULT;

std::string Narrow(const wchar_t* name) {
    std::string narrow;
    for (; *name != L'\0'; ++name) narrow += static_cast<char>(*name);  // members have plain names
    return narrow;
}

}  // namespace

Object::Object(Microsoft::WRL::ComPtr<IDispatch> object, std::string name)
    : object_(std::move(object)), name_(std::move(name)) {
    if (object_ == nullptr) throw Error(E_POINTER, name_, "The host gave no object for " + name_);
}

std::string Object::Named(const wchar_t* member) const { return name_ + "." + Narrow(member); }

/// Objects of scripts may answer names in the extended way alone.
DISPID Object::LookUp(const wchar_t* member) const {
    auto* name = const_cast<wchar_t*>(member);
    DISPID id = DISPID_UNKNOWN;
    HRESULT found = object_->GetIDsOfNames(IID_NULL, &name, 1, AnyLanguage, &id);
    Microsoft::WRL::ComPtr<IDispatchEx> extended;
    if (FAILED(found) && SUCCEEDED(object_.As(&extended))) {
        Bstr text;
        *text.Address() = SysAllocString(member);
        found = extended->GetDispID(text.Get(), fdexNameCaseInsensitive, &id);
    }
    if (found == DISP_E_UNKNOWNNAME) return DISPID_UNKNOWN;
    EXCEPINFO none{};
    if (FAILED(found)) throw ErrorOf(found, none, "Asking for " + Named(member));
    return id;
}

DISPID Object::Find(const wchar_t* member) const {
    auto known = std::find_if(known_.begin(), known_.end(),
                              [member](const auto& entry) { return entry.first == member; });
    if (known == known_.end()) known = known_.insert(known, {member, LookUp(member)});
    if (known->second == DISPID_UNKNOWN) throw MissingMember(name_, Narrow(member));
    return known->second;
}

Variant Object::Invoke(DISPID id, WORD kind, Arguments& arguments, const wchar_t* member) const {
    // The last argument comes first. What they hold stays theirs: the call does not free it.
    std::vector<VARIANT> reversed;
    for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument)
        reversed.push_back(argument->Get());
    DISPID put = DISPID_PROPERTYPUT;
    const bool puts = kind == DISPATCH_PROPERTYPUT;
    DISPPARAMS parameters{reversed.data(), puts ? &put : nullptr, static_cast<UINT>(reversed.size()),
                          puts ? 1U : 0U};
    Variant result;
    EXCEPINFO exception{};
    UINT wrong = 0;
    const bool hasResult = (kind & DISPATCH_PROPERTYGET) != 0;
    const HRESULT status = object_->Invoke(id, IID_NULL, AnyLanguage, kind, &parameters,
                                           hasResult ? result.Address() : nullptr, &exception, &wrong);
    if (status == DISP_E_MEMBERNOTFOUND) throw MissingMember(name_, Narrow(member));
    if (FAILED(status)) throw ErrorOf(status, exception, Named(member));
    return result;
}

Variant Object::Get(const wchar_t* member, Arguments arguments) const {
    return Invoke(Find(member), DISPATCH_PROPERTYGET | DISPATCH_METHOD, arguments, member);
}

Variant Object::GetDefault(Arguments arguments) const {
    return Invoke(DISPID_VALUE, DISPATCH_PROPERTYGET | DISPATCH_METHOD, arguments, L"(default)");
}

void Object::Call(const wchar_t* member, Arguments arguments) const {
    Invoke(Find(member), DISPATCH_METHOD, arguments, member);
}

void Object::Put(const wchar_t* member, Variant value) const {
    Arguments arguments;
    arguments.push_back(std::move(value));
    Invoke(Find(member), DISPATCH_PROPERTYPUT, arguments, member);
}

Object Object::AsObject(const wchar_t* member, Arguments arguments) const {
    return Object(ObjectOf(Get(member, std::move(arguments)).Get()), Narrow(member));
}

}  // namespace lumarin::automation
