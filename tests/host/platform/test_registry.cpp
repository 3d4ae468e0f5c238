#include <cstring>

#include "platform/CodePage.h"
#include "platform/Modules.h"
#include "platform/Paths.h"
#include "platform/Registry.h"

#include "TemporaryTree.h"
#include "windows.h"

namespace {

using platform::Registry;

constexpr const wchar_t* product = L"HKEY_LOCAL_MACHINE\\Software\\Ostrakon\\Quarvel5";

using RegistryFile = TemporaryTree;

std::wstring textOf(const Registry& registry, const wchar_t* key, const wchar_t* name)
{
    const auto value = registry.value(key, name);
    return value && std::holds_alternative<std::wstring>(*value) ? std::get<std::wstring>(*value) : L"(none)";
}

TEST_F(RegistryFile, NamesTheSupportFolderByItself)
{
    const Registry registry(root / "absent.ini");
    EXPECT_TRUE(registry.problems().empty());
    EXPECT_EQ(platform::nativePath(textOf(registry, product, L"Chemin")), root / "support");
    EXPECT_TRUE(registry.hasKey(L"hkey_local_machine\\software\\ostrakon"));
    EXPECT_FALSE(registry.hasKey(L"HKEY_LOCAL_MACHINE\\Software\\Ostra"));
}

TEST_F(RegistryFile, ReadsAndReports)
{
    write("registre.ini", "\xEF\xBB\xBF\xEF\xBB\xBF; réglages\r\n"
                          "perdu = 1\n"
                          "[HKEY_LOCAL_MACHINE\\Software\\Ostrakon\\Quarvel5]\r\n"
                          "chemin = C:\\Été\\\r\n"
                          "cité = \"il dit \"oui\" = \"\r\n"
                          "Nombre=4294967295\n"
                          "trop = 4294967296\n"
                          "texte = \"12\"\n"
                          "nombre = 2\n"
                          "@ = \"défaut\"\n"
                          "quoi ?");
    const Registry registry(root / "registre.ini");
    struct Row {
        const wchar_t* name;
        const wchar_t* text;
    };
    const Row rows[] = {
        {L"CHEMIN", L"C:\\Été\\"}, {L"CITÉ", L"il dit \"oui\" = "}, {L"trop", L"4294967296"}, {L"texte", L"12"},
        {L"", L"défaut"},          {L"perdu", L"(none)"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(textOf(registry, product, row.name), row.text) << platform::utf8FromWide(row.name);
    EXPECT_EQ(registry.value(product, L"nombre"), Registry::Value(std::uint32_t{4294967295U})); // the first counts
    ASSERT_EQ(registry.problems().size(), 2U);
    EXPECT_NE(registry.problems()[0].find("registre.ini:2 :"), std::string::npos);
    EXPECT_NE(registry.problems()[1].find("registre.ini:11 :"), std::string::npos);
}

TEST_F(RegistryFile, WritesWithoutLosingTheRest)
{
    write("registre.ini", "; à moi\n[HKEY_CURRENT_USER\\A]\nx = 1\n# fin\n???\n[HKEY_CURRENT_USER\\B]\n");
    Registry registry(root / "registre.ini");
    registry.setValue(L"hkey_current_user\\a", L"X", Registry::Value(L"C:\\d \"e\""));
    registry.setValue(L"HKEY_CURRENT_USER\\A", L"", Registry::Value(std::uint32_t{7}));
    registry.createKey(L"HKEY_CURRENT_USER\\C\\D");
    const char* const expected = "; à moi\n[HKEY_CURRENT_USER\\A]\nX = \"C:\\d \"e\"\"\n# fin\n???\n@ = 7\n"
                                 "[HKEY_CURRENT_USER\\B]\n[HKEY_CURRENT_USER\\C\\D]\n";
    EXPECT_EQ(read("registre.ini"), expected);
    for (const wchar_t* name : {L"a\nb", L"a=b", L";a", L" a", L"@"})
        EXPECT_THROW(registry.setValue(L"K", name, Registry::Value(L"v")), std::invalid_argument);
    EXPECT_THROW(registry.setValue(L"K", L"n", Registry::Value(L"v\nx = 1")), std::invalid_argument);
    for (const wchar_t* const key : {L"", L"K]\n[L", L"K\xD800"}) {
        EXPECT_THROW(registry.createKey(key), std::invalid_argument);
        EXPECT_THROW(registry.setValue(key, L"n", Registry::Value(L"v")), std::invalid_argument);
    }
    EXPECT_EQ(read("registre.ini"), expected);
    EXPECT_EQ(textOf(Registry(root / "registre.ini"), L"HKEY_CURRENT_USER\\A", L"x"), L"C:\\d \"e\"");
}

TEST_F(RegistryFile, TwoProgramsShareOne)
{
    Registry one(root / "registre.ini"), other(root / "registre.ini");
    one.setValue(product, L"un", std::wstring(L"tapé ici"));
    other.setValue(product, L"deux", 2U);
    one.refresh();
    EXPECT_EQ(one.value(product, L"deux"), Registry::Value(2U));
    EXPECT_EQ(textOf(Registry(root / "registre.ini"), product, L"un"), L"tapé ici");
    std::filesystem::remove(root / "registre.ini");
    one.setValue(product, L"trois", 3U);
    EXPECT_EQ(textOf(Registry(root / "registre.ini"), product, L"un"), L"tapé ici") << "nothing read is lost";
}

TEST_F(RegistryFile, AFailedSaveChangesNothing)
{
    write("file", "");
    Registry registry(root / "file/registre.ini"); // below a file no folder can be made
    EXPECT_THROW(registry.setValue(L"K", L"n", Registry::Value(L"v")), std::system_error);
    EXPECT_EQ(registry.value(L"K", L"n"), std::nullopt);
}

/// The calls share one registry for the whole program, read when it is first asked for.
TEST_F(RegistryFile, PublishedCalls)
{
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"Software\\Ostrakon\\Quarvel5\\", 0, KEY_READ, &key), ERROR_SUCCESS);
    EXPECT_EQ(RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"Software\\Absent", 0, KEY_READ, &key), ERROR_FILE_NOT_FOUND);
    DWORD type = 0;
    DWORD size = 0;
    ASSERT_EQ(RegQueryValueExW(key, L"chemin", nullptr, &type, nullptr, &size), ERROR_SUCCESS);
    EXPECT_EQ(type, REG_SZ);
    std::wstring text(size / sizeof(wchar_t), L'?');
    size -= 1;
    EXPECT_EQ(RegQueryValueExW(key, L"chemin", nullptr, &type, reinterpret_cast<BYTE*>(text.data()), &size),
              ERROR_MORE_DATA);
    EXPECT_EQ(RegQueryValueExW(key, L"chemin", nullptr, &type, reinterpret_cast<BYTE*>(text.data()), &size),
              ERROR_SUCCESS); // the refused call told the size
    EXPECT_EQ(text.back(), L'\0');
    EXPECT_EQ(platform::nativePath(text.c_str()).filename(), "support");
    EXPECT_EQ(RegQueryValueExW(key, L"absent", nullptr, &type, nullptr, &size), ERROR_FILE_NOT_FOUND);
    const DWORD number = 42;
    EXPECT_EQ(RegSetValueExW(key, L"n", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number), 4), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    EXPECT_EQ(RegCloseKey(key), ERROR_INVALID_HANDLE);
    EXPECT_EQ(RegQueryValueExW(key, L"chemin", nullptr, &type, nullptr, &size), ERROR_INVALID_HANDLE);

    DWORD disposition = 0;
    ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, L"Neuf", 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr,
                              &key, &disposition),
              ERROR_SUCCESS);
    EXPECT_EQ(disposition, REG_CREATED_NEW_KEY);
    EXPECT_EQ(RegSetValueExW(key, L"n", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number), 4), ERROR_SUCCESS);
    DWORD back = 0;
    size = sizeof back;
    EXPECT_EQ(RegQueryValueExW(key, L"N", nullptr, &type, reinterpret_cast<BYTE*>(&back), &size), ERROR_SUCCESS);
    EXPECT_EQ(back, 42U);
    const wchar_t* const lines = L"a\nb";
    EXPECT_EQ(RegSetValueExW(key, L"t", 0, REG_SZ, reinterpret_cast<const BYTE*>(lines), 16), ERROR_INVALID_DATA);
    EXPECT_EQ(RegCloseKey(key), ERROR_SUCCESS);
    EXPECT_EQ(read("registre.ini"), "[HKEY_CURRENT_USER\\Neuf]\nn = 42\n");
}

TEST(Modules, AreFoundByFileName)
{
    int module = 0;
    platform::moduleLoaded(L"/opt/vela/KALT-ARX2015-64BITS.arx", &module);
    EXPECT_EQ(static_cast<void*>(GetModuleHandleW(L"kalt-arx2015-64bits.ARX")), &module);
    EXPECT_EQ(GetModuleHandleW(L"kalt"), nullptr);
    platform::moduleUnloaded(&module);
    EXPECT_EQ(GetModuleHandleW(L"KALT-ARX2015-64BITS.arx"), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_MOD_NOT_FOUND));
    EXPECT_NE(GetProcAddress(GetModuleHandleW(nullptr), "strlen"), nullptr);
    EXPECT_EQ(GetProcAddress(GetModuleHandleW(nullptr), "no_such_symbol"), nullptr);
}

} // namespace
