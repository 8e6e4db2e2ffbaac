#pragma once

#include "automation/calls/Values.h"

#include <functional>
#include <string>
#include <vector>

namespace lumarin::automation {

/// The arguments of one call, in the order in which the member declares them. Optional ones that the caller
/// left out count as empty.
class Arguments {
public:
    explicit Arguments(const DISPPARAMS& parameters) : parameters_(parameters) {}
    std::size_t Count() const { return parameters_.cArgs; }
    /// As it was passed, perhaps by reference.
    const VARIANT& operator[](std::size_t index) const;
    /// Puts a text where the caller passed one by reference; nothing for one that was passed by value.
    void PutText(std::size_t index, const std::string& text) const;

private:
    const DISPPARAMS& parameters_;
};

/// An object of ours for others: its members are functions in a table, found by name whatever the case. What
/// a function throws reaches the caller as a failure of the call. Created by `MakeObject`; lives as long as
/// somebody refers to it. As everything of an apartment, it is used and referred to on one thread.
class DispatchObject : public IDispatch {
public:
    using Function = std::function<Variant(const Arguments&)>;

    DispatchObject() = default;
    DispatchObject(const DispatchObject&) = delete;
    DispatchObject& operator=(const DispatchObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID language, ITypeInfo** information) override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* wrong) override;

protected:
    virtual ~DispatchObject() = default;

    /// A property that can be read, or an operation.
    void Member(const wchar_t* name, Function get) { members_.push_back({name, std::move(get), nullptr}); }
    /// A property that can be written too.
    void Member(const wchar_t* name, Function get, Function put) {
        members_.push_back({name, std::move(get), std::move(put)});
    }
    /// The member that was entered last is also the default one.
    void MakeDefault() { default_ = members_.size(); }

private:
    struct Entry {
        std::wstring name;
        Function get, put;
    };

    std::vector<Entry> members_;
    std::size_t default_ = 0;  ///< from 1; 0: there is none
    ULONG references_ = 0;
};

/// A new object, held by what is returned.
template <class Type, class... Parameters>
Microsoft::WRL::ComPtr<Type> MakeObject(Parameters&&... parameters) {
    return Microsoft::WRL::ComPtr<Type>(new Type(std::forward<Parameters>(parameters)...));
}

}  // namespace lumarin::automation
