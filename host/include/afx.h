#pragma once

/// The framework's exceptions and text class.
/// As in the framework, exceptions are thrown and caught by pointer, and the catcher calls Delete():
///     catch (CException* e) { ...; e->Delete(); }

#include "afxstr.h"
#include "tchar.h"
#include "windows.h"

/// A place in a collection; null before its first and after its last element.
struct __POSITION;
using POSITION = __POSITION*;

class CException {
public:
    CException() = default;
    CException(const CException&) = delete;
    CException& operator=(const CException&) = delete;
    virtual ~CException() = default;

    /// Writes the reason into `message`, cut to `size` characters with its zero. @return FALSE when there is none.
    virtual BOOL GetErrorMessage(LPTSTR message, UINT size, UINT* helpContext = nullptr) const;
    /// Ends an exception that was caught. Those declared here live as long as the program: nothing happens.
    virtual void Delete() {}
};

/// An argument outside what the operation accepts, such as an index outside an array.
class CInvalidArgException : public CException {
public:
    BOOL GetErrorMessage(LPTSTR message, UINT size, UINT* helpContext = nullptr) const override;
};

/// Throws the program's one CInvalidArgException, by pointer.
[[noreturn]] void AfxThrowInvalidArgException();
