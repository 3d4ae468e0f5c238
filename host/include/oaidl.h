#pragma once

/// The part of automation that calls an object's methods by name.

#include "windows.h"

using DISPID = LONG;
using LCID = DWORD;
using LPOLESTR = wchar_t*;

struct GUID {
    DWORD Data1;
    WORD Data2;
    WORD Data3;
    BYTE Data4[8];
};
using IID = GUID;
using REFIID = const IID&;
constexpr IID IID_NULL = {};

constexpr HRESULT S_OK = 0;
constexpr HRESULT E_FAIL = static_cast<HRESULT>(0x80004005U);
constexpr HRESULT E_INVALIDARG = static_cast<HRESULT>(0x80070057U);
constexpr HRESULT DISP_E_MEMBERNOTFOUND = static_cast<HRESULT>(0x80020003U);
constexpr HRESULT DISP_E_UNKNOWNNAME = static_cast<HRESULT>(0x80020006U);
constexpr HRESULT DISP_E_BADPARAMCOUNT = static_cast<HRESULT>(0x8002000EU);
constexpr bool SUCCEEDED(HRESULT result)
{
    return result >= 0;
}
constexpr bool FAILED(HRESULT result)
{
    return result < 0;
}

constexpr LCID LOCALE_USER_DEFAULT = 0x0400;
constexpr DISPID DISPID_UNKNOWN = -1;
constexpr WORD DISPATCH_METHOD = 1;

struct VARIANT; // no method called here takes or gives a value
struct EXCEPINFO;
struct DISPPARAMS {
    VARIANT* rgvarg;
    DISPID* rgdispidNamedArgs;
    UINT cArgs;
    UINT cNamedArgs;
};

/// An object counted by its users: whoever is handed one releases it.
struct IUnknown {
    virtual ULONG AddRef() = 0;
    virtual ULONG Release() = 0;

protected:
    ~IUnknown() = default; // objects end in Release only
};

/// An object whose methods are found by name, then called by number.
struct IDispatch : IUnknown {
    /// @return S_OK, or DISP_E_UNKNOWNNAME (the number is then DISPID_UNKNOWN).
    virtual HRESULT GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT nameCount, LCID locale, DISPID* ids) = 0;
    virtual HRESULT Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                           EXCEPINFO* exception, UINT* wrongArgument) = 0;

protected:
    ~IDispatch() = default;
};
