#include "automation/calls/Object.h"

#include "automation/calls/Failure.h"

#include <dispex.h>

#include <algorithm>
#include <iterator>

namespace lumarin::automation {

namespace {

constexpr LCID AnyLanguage = LOCALE_USER_DEFAULT;

}  // namespace

std::string MemberName::Plain() const {
    std::string plain;
    for (const wchar_t* letter = text_; *letter != L'\0'; ++letter) plain += static_cast<char>(*letter);
    return plain;
}

/// What is known of an object. Held during each call of it: the call may drop whoever made it.
struct Object::Known {
    Known(Microsoft::WRL::ComPtr<IDispatch> of, std::string called)
        : object(std::move(of)), name(std::move(called)) {}

    long AddRef() { return ++references; }
    long Release() {
        const long left = --references;
        if (left == 0) delete this;
        return left;
    }

    std::string Named(MemberName member) const { return name + "." + member.Plain(); }
    DISPID Find(MemberName member);
    DISPID LookUp(MemberName member) const;
    bool IsOfScript() const;
    bool RefusesCount(HRESULT status, const Error& error) const;
    [[noreturn]] void Fail(HRESULT status, EXCEPINFO& exception, MemberName member) const;

    const Microsoft::WRL::ComPtr<IDispatch> object;
    const std::string name;
    std::vector<std::pair<MemberName, DISPID>> members;
    long references = 0;
};

/// Objects of scripts may answer names in the extended way alone.
DISPID Object::Known::LookUp(MemberName member) const {
    auto* asked = const_cast<wchar_t*>(member.Text());
    DISPID id = DISPID_UNKNOWN;
    HRESULT found = object->GetIDsOfNames(IID_NULL, &asked, 1, AnyLanguage, &id);
    Microsoft::WRL::ComPtr<IDispatchEx> extended;
    if (FAILED(found) && SUCCEEDED(object.As(&extended))) {
        Bstr text;
        *text.Address() = SysAllocString(member.Text());
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

void Object::Known::Fail(HRESULT status, EXCEPINFO& exception, MemberName member) const {
    if (status == DISP_E_MEMBERNOTFOUND) throw MissingMember(name, member.Plain());
    const Error error = ErrorOf(status, exception, Named(member));
    if (RefusesCount(status, error))
        throw WrongArgumentCount(error.Number(), error.Source(), error.Description());
    throw error;
}

DISPID Object::Known::Find(MemberName member) {
    auto found = std::find_if(members.begin(), members.end(),
                              [member](const auto& entry) { return entry.first == member; });
    if (found == members.end()) found = members.insert(found, {member, LookUp(member)});
    if (found->second == DISPID_UNKNOWN) throw MissingMember(name, member.Plain());
    return found->second;
}

Object::Object(Microsoft::WRL::ComPtr<IDispatch> object, std::string name)
    : known_(new Known(std::move(object), std::move(name))) {
    if (known_->object == nullptr)
        throw Error(E_POINTER, known_->name, "The host gave no object for " + known_->name);
}

Object::Object(const Object& other) = default;
Object& Object::operator=(const Object& other) = default;
Object::~Object() = default;

IDispatch* Object::Pointer() const { return known_->object.Get(); }

bool Object::IsOfScript() const { return known_->IsOfScript(); }

bool Object::Is(IDispatch* other) const {
    Microsoft::WRL::ComPtr<IUnknown> mine, theirs;
    return other != nullptr && SUCCEEDED(known_->object.As(&mine)) &&
           SUCCEEDED(other->QueryInterface(IID_PPV_ARGS(theirs.GetAddressOf()))) &&
           mine.Get() == theirs.Get();
}

Variant Object::Invoke(DISPID id, WORD kind, const Arguments& arguments, MemberName member) const {
    // The last argument comes first. What they hold stays theirs: the call does not free it.
    std::vector<VARIANT> reversed;
    for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument)
        reversed.push_back(argument->Get());
    DISPID put = DISPID_PROPERTYPUT;
    const bool puts = kind == DISPATCH_PROPERTYPUT;
    DISPPARAMS parameters{reversed.data(), puts ? &put : nullptr, static_cast<UINT>(reversed.size()),
                          puts ? 1U : 0U};
    return Invoke(id, kind, parameters, member);
}

Variant Object::Invoke(DISPID id, WORD kind, DISPPARAMS& parameters, MemberName member) const {
    const Microsoft::WRL::ComPtr<Known> held = known_;
    Variant result;
    EXCEPINFO exception{};
    UINT wrong = 0;
    const bool hasResult = (kind & DISPATCH_PROPERTYGET) != 0;
    const HRESULT status = held->object->Invoke(id, IID_NULL, AnyLanguage, kind, &parameters,
                                                hasResult ? result.Address() : nullptr, &exception, &wrong);
    if (FAILED(status)) held->Fail(status, exception, member);
    return result;
}

Variant Object::Get(MemberName member) const {
    DISPPARAMS none{};
    return Invoke(known_->Find(member), DISPATCH_PROPERTYGET | DISPATCH_METHOD, none, member);
}

Variant Object::Get(MemberName member, const Arguments& arguments) const {
    return Invoke(known_->Find(member), DISPATCH_PROPERTYGET | DISPATCH_METHOD, arguments, member);
}

Variant Object::GetDefault(const Arguments& arguments) const {
    return Invoke(DISPID_VALUE, DISPATCH_PROPERTYGET | DISPATCH_METHOD, arguments, L"(default)");
}

void Object::Call(MemberName member) const {
    DISPPARAMS none{};
    Invoke(known_->Find(member), DISPATCH_METHOD, none, member);
}

void Object::Call(MemberName member, const Arguments& arguments) const {
    Invoke(known_->Find(member), DISPATCH_METHOD, arguments, member);
}

void Object::Put(MemberName member, const Variant& value) const {
    Invoke(known_->Find(member), DISPATCH_PROPERTYPUT, {value}, member);
}

Object Object::AsObject(MemberName member, const Arguments& arguments) const {
    return Object(ObjectOf(Get(member, arguments).Get()), member.Plain());
}

}  // namespace lumarin::automation
