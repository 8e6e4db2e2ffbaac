#include "automation/calls/Object.h"

#include "automation/calls/Failure.h"

#include <dispex.h>

#include <algorithm>
#include <iterator>

namespace lumarin::automation {

namespace {

constexpr LCID AnyLanguage = LOCALE_USER_DEFAULT;

std::string Narrow(const wchar_t* name) {
    std::string narrow;
    for (; *name != L'\0'; ++name) narrow += static_cast<char>(*name);  // members have plain names
    return narrow;
}

}  // namespace

struct Object::Known {
    Known(Microsoft::WRL::ComPtr<IDispatch> of, std::string called)
        : object(std::move(of)), name(std::move(called)) {}

    std::string Named(const wchar_t* member) const { return name + "." + Narrow(member); }
    DISPID Find(const wchar_t* member);
    DISPID LookUp(const wchar_t* member) const;
    bool IsOfScript() const;
    bool RefusesCount(HRESULT status, const Error& error) const;

    const Microsoft::WRL::ComPtr<IDispatch> object;
    const std::string name;
    std::vector<std::pair<std::wstring, DISPID>> members;
};

/// Objects of scripts may answer names in the extended way alone.
DISPID Object::Known::LookUp(const wchar_t* member) const {
    auto* asked = const_cast<wchar_t*>(member);
    DISPID id = DISPID_UNKNOWN;
    HRESULT found = object->GetIDsOfNames(IID_NULL, &asked, 1, AnyLanguage, &id);
    Microsoft::WRL::ComPtr<IDispatchEx> extended;
    if (FAILED(found) && SUCCEEDED(object.As(&extended))) {
        Bstr text;
        *text.Address() = SysAllocString(member);
        found = extended->GetDispID(text.Get(), fdexNameCaseInsensitive, &id);
    }
    if (found == DISP_E_UNKNOWNNAME) return DISPID_UNKNOWN;
    EXCEPINFO none{};
    if (FAILED(found)) throw ErrorOf(found, none, "Asking for " + Named(member));
    return id;
}

/// Scripts report it as an error of their own, or, under Wine, as a plain failure without one.
bool Object::Known::RefusesCount(HRESULT status, const Error& error) const {
    constexpr HRESULT OfScripts = static_cast<HRESULT>(0x800A01C2);
    constexpr HRESULT Signs[] = {DISP_E_BADPARAMCOUNT, DISP_E_PARAMNOTFOUND, DISP_E_PARAMNOTOPTIONAL,
                                 OfScripts};
    if (std::find(std::begin(Signs), std::end(Signs), error.Number()) != std::end(Signs)) return true;
    return status == E_FAIL && IsOfScript();
}

bool Object::Known::IsOfScript() const {
    Microsoft::WRL::ComPtr<IDispatchEx> extended;
    return SUCCEEDED(object.As(&extended));
}

DISPID Object::Known::Find(const wchar_t* member) {
    auto found = std::find_if(members.begin(), members.end(),
                              [member](const auto& entry) { return entry.first == member; });
    if (found == members.end()) found = members.insert(found, {member, LookUp(member)});
    if (found->second == DISPID_UNKNOWN) throw MissingMember(name, Narrow(member));
    return found->second;
}

Object::Object(Microsoft::WRL::ComPtr<IDispatch> object, std::string name)
    : known_(std::make_shared<Known>(std::move(object), std::move(name))) {
    if (known_->object == nullptr)
        throw Error(E_POINTER, known_->name, "The host gave no object for " + known_->name);
}

IDispatch* Object::Pointer() const { return known_->object.Get(); }

bool Object::IsOfScript() const { return known_->IsOfScript(); }

bool Object::Is(IDispatch* other) const {
    Microsoft::WRL::ComPtr<IUnknown> mine, theirs;
    return other != nullptr && SUCCEEDED(known_->object.As(&mine)) &&
           SUCCEEDED(other->QueryInterface(IID_PPV_ARGS(theirs.GetAddressOf()))) &&
           mine.Get() == theirs.Get();
}

Variant Object::Invoke(const std::shared_ptr<Known>& known, DISPID id, WORD kind, Arguments& arguments,
                       const wchar_t* member) {
    const std::shared_ptr<Known> held = known;
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
    const HRESULT status = held->object->Invoke(id, IID_NULL, AnyLanguage, kind, &parameters,
                                                hasResult ? result.Address() : nullptr, &exception, &wrong);
    if (status == DISP_E_MEMBERNOTFOUND) throw MissingMember(held->name, Narrow(member));
    if (FAILED(status)) {
        const Error error = ErrorOf(status, exception, held->Named(member));
        if (held->RefusesCount(status, error))
            throw WrongArgumentCount(error.Number(), error.Source(), error.Description());
        throw error;
    }
    return result;
}

Variant Object::Get(const wchar_t* member, Arguments arguments) const {
    return Invoke(known_, known_->Find(member), DISPATCH_PROPERTYGET | DISPATCH_METHOD, arguments, member);
}

Variant Object::GetDefault(Arguments arguments) const {
    return Invoke(known_, DISPID_VALUE, DISPATCH_PROPERTYGET | DISPATCH_METHOD, arguments, L"(default)");
}

void Object::Call(const wchar_t* member, Arguments arguments) const {
    Invoke(known_, known_->Find(member), DISPATCH_METHOD, arguments, member);
}

void Object::Put(const wchar_t* member, Variant value) const {
    Arguments arguments;
    arguments.push_back(std::move(value));
    Invoke(known_, known_->Find(member), DISPATCH_PROPERTYPUT, arguments, member);
}

Object Object::AsObject(const wchar_t* member, Arguments arguments) const {
    return Object(ObjectOf(Get(member, std::move(arguments)).Get()), Narrow(member));
}

}  // namespace lumarin::automation
