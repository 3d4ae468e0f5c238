#include "rx/ExceptionText.h"

#include <array>
#include <exception>

#include "platform/CodePage.h"

#include "afx.h"
#include "dbmain.h"

namespace {

std::wstring textOf(CException& exception)
{
    std::array<wchar_t, 512> message{};
    const bool told = exception.GetErrorMessage(message.data(), static_cast<UINT>(message.size())) != FALSE;
    exception.Delete();
    return told ? message.data() : L"erreur sans explication";
}

} // namespace

std::wstring currentExceptionText()
{
    try {
        throw;
    } catch (CException* exception) { // the framework throws pointers
        return textOf(*exception);
    } catch (const AcDbOpenError& error) {
        return std::wstring(L"objet du dessin mal ouvert (") + acadErrorStatusText(error.status()) + L")";
    } catch (const std::bad_alloc&) {
        return L"mémoire insuffisante";
    } catch (const std::exception& exception) {
        return platform::wideFromUtf8(exception.what());
    } catch (...) {
        return L"erreur inconnue";
    }
}
