// The settings on the system's registry, seen by its own "reg" tool.

#include "platform/win32/Win32Registry.h"
#include "settings/AppProperties.h"
#include "settings/cRegistry.h"
#include "tests/desktop/TestDesktop.h"

#include <windows.h>

#include <sddl.h>

#include <cstdio>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace tollvane::test {
namespace {

constexpr auto kRoot = rootkey::currentUser;
using Texts = std::vector<std::string>;

/// A key of this process's own below HKEY_CURRENT_USER, gone afterwards.
class PrivateKey : public testing::Test {
protected:
    void SetUp() override { RegDeleteTreeA(HKEY_CURRENT_USER, path.c_str()); }
    void TearDown() override {
        EXPECT_EQ(RegDeleteTreeA(HKEY_CURRENT_USER, path.c_str()), ERROR_SUCCESS);
    }

    /// What "reg query" prints about the private key or a key below it.
    std::string regQuery(const std::string& below) const {
        std::string output;
        if (FILE* pipe = _popen(("reg query \"HKCU\\" + path + below + "\" /s").c_str(), "r")) {
            char line[512];
            while (std::fgets(line, sizeof line, pipe) != nullptr) {
                output += line;
            }
            _pclose(pipe);
        }
        return output;
    }

    void expectListed(const std::string& listing, const std::string& name, const std::string& type,
                      const std::string& value) const {
        const std::string line = "    " + name + "    " + type + "    " + value;
        EXPECT_NE(listing.find(line + "\n"), std::string::npos) << '"' << line << "\" is not in\n"
                                                                << listing;
    }

    /// Stored type and size in bytes, as the system's wide call counts them.
    std::pair<DWORD, DWORD> stored(const std::wstring& name) const {
        const std::wstring widePath(path.begin(), path.end());
        DWORD type = 0;
        DWORD size = 0;
        EXPECT_EQ(RegGetValueW(HKEY_CURRENT_USER, widePath.c_str(), name.c_str(),
                               RRF_RT_ANY | RRF_NOEXPAND, &type, nullptr, &size),
                  ERROR_SUCCESS);
        HKEY key = nullptr;
        RegOpenKeyExW(HKEY_CURRENT_USER, widePath.c_str(), 0, KEY_READ, &key);
        RegQueryValueExW(key, name.c_str(), nullptr, &type, nullptr, &size);
        RegCloseKey(key);
        return {type, size};
    }

    /// Denies everyone some rights on a key below the private one, which is created. Grant them
    /// again at the end: a key whose rights are denied may resist its deletion.
    void deny(const std::string& below, const std::string& rights) const {
        setRules(below, "D:(D;;" + rights + ";;;WD)(A;;KA;;;WD)");
    }
    void grantAll(const std::string& below) const { setRules(below, "D:(A;;KA;;;WD)"); }

    void setRules(const std::string& below, const std::string& rules) const {
        HKEY key = nullptr;
        ASSERT_EQ(RegCreateKeyExA(HKEY_CURRENT_USER, (path + below).c_str(), 0, nullptr, 0,
                                  READ_CONTROL | WRITE_DAC, nullptr, &key, nullptr),
                  ERROR_SUCCESS);
        PSECURITY_DESCRIPTOR descriptor = nullptr;
        EXPECT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorA(
            rules.c_str(), SDDL_REVISION_1, &descriptor, nullptr));
        EXPECT_EQ(RegSetKeySecurity(key, DACL_SECURITY_INFORMATION, descriptor), ERROR_SUCCESS);
        LocalFree(descriptor);
        RegCloseKey(key);
    }

    static std::string lowerSystemText(DWORD code) {
        char buffer[1024] = "";
        const DWORD length =
            FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                           code, 0, buffer, sizeof buffer, nullptr);
        CharLowerBuffA(buffer, length);
        return {buffer, length};
    }

    template <class Operation>
    static Error errorOf(Operation operation) {
        try {
            operation();
        } catch (const Error& error) {
            return error;
        }
        ADD_FAILURE() << "no error";
        return {0, "", ""};
    }

    std::string path = "Software\\TollvaneTest-" + std::to_string(GetCurrentProcessId());
    win32::Win32Registry system;
    cRegistry registry{system, "Tollvane"};
};

TEST_F(PrivateKey, TextsAreWrittenAsTextsThatTheSystemTerminates) {
    EXPECT_TRUE(registry.SaveStringValue(kRoot, path, "Name", "Smith & Sons"));
    expectListed(regQuery(""), "Name", "REG_SZ", "Smith & Sons");
    EXPECT_EQ(stored(L"Name"), (std::pair<DWORD, DWORD>{REG_SZ, 2 * 13}));
    EXPECT_EQ(registry.GetStringValue(kRoot, path, "Name"), "Smith & Sons");
}

TEST_F(PrivateKey, AnEmptyTextIsWrittenWithoutAByteAndReadsAsTheDefault) {
    EXPECT_TRUE(registry.SaveStringValue(kRoot, path, "Name", ""));
    EXPECT_EQ(stored(L"Name"), (std::pair<DWORD, DWORD>{REG_SZ, 0}));
    EXPECT_EQ(registry.GetStringValue(kRoot, path, "Name", "none"), "none");
}

TEST_F(PrivateKey, EightBitCharactersComeBack) {
    const std::string text = "Caf\xE9 M\xFCller";
    EXPECT_TRUE(registry.SaveStringValue(kRoot, path, "Name", text));
    EXPECT_EQ(registry.GetStringValue(kRoot, path, "Name"), text);
}

TEST_F(PrivateKey, NumbersAndTruthValuesAreWrittenAsFourBytes) {
    EXPECT_TRUE(registry.SaveNumericValue(kRoot, path, "Count", 258));
    EXPECT_TRUE(registry.SaveBooleanValue(kRoot, path, "On", true));
    EXPECT_TRUE(registry.SaveBooleanValue(kRoot, path, "Off", false));
    const std::string listing = regQuery("");
    expectListed(listing, "Count", "REG_DWORD", "0x102");
    expectListed(listing, "On", "REG_DWORD", "0xffffffff");
    expectListed(listing, "Off", "REG_DWORD", "0x0");
    EXPECT_EQ(stored(L"On"), (std::pair<DWORD, DWORD>{REG_DWORD, 4}));
    EXPECT_EQ(registry.GetNumericValue(kRoot, path, "Count"), 258);
    EXPECT_TRUE(registry.GetBooleanValue(kRoot, path, "On"));
    EXPECT_FALSE(registry.GetBooleanValue(kRoot, path, "Off", true));
}

TEST_F(PrivateKey, BytesAreWrittenAsTheyAre) {
    EXPECT_TRUE(registry.SaveBinaryValue(kRoot, path, "Bytes", {1, 0, 255}));
    EXPECT_TRUE(registry.SaveBinaryValue(kRoot, path, "None", {}));
    expectListed(regQuery(""), "Bytes", "REG_BINARY", "0100FF");
    EXPECT_EQ(stored(L"None"), (std::pair<DWORD, DWORD>{REG_BINARY, 0}));
    EXPECT_EQ(registry.GetBinaryValue(kRoot, path, "Bytes"),
              (std::vector<std::uint8_t>{1, 0, 255}));
    EXPECT_TRUE(registry.GetBinaryValue(kRoot, path, "None").empty());
}

TEST_F(PrivateKey, TheNameDefaultReadsTheUnnamedValueAndWritesANamedOne) {
    EXPECT_TRUE(registry.SaveStringValue(kRoot, path, "", "unnamed"));
    EXPECT_TRUE(registry.SaveStringValue(kRoot, path, "Default", "named"));
    EXPECT_EQ(registry.GetStringValue(kRoot, path, "DEFAULT"), "unnamed");
    expectListed(regQuery(""), "Default", "REG_SZ", "named");
}

TEST_F(PrivateKey, ALongTextAndAnotherTypeRaiseTheSystemsStatus) {
    EXPECT_TRUE(registry.SaveStringValue(kRoot, path, "Longest", std::string(254, 'x')));
    EXPECT_EQ(registry.GetStringValue(kRoot, path, "Longest"), std::string(254, 'x'));
    EXPECT_TRUE(registry.SaveStringValue(kRoot, path, "TooLong", std::string(255, 'x')));
    const Error tooLong = errorOf([&] { registry.GetStringValue(kRoot, path, "TooLong"); });
    EXPECT_EQ(tooLong.number(), ERROR_MORE_DATA);
    EXPECT_EQ(tooLong.description(), "There was an error reading the HKEY_CURRENT_USER\\" + path +
                                         " registry key, " + lowerSystemText(ERROR_MORE_DATA));
    EXPECT_TRUE(registry.SaveNumericValue(kRoot, path, "Number", 1));
    EXPECT_EQ(errorOf([&] { registry.GetStringValue(kRoot, path, "Number"); }).number(), 1);
    EXPECT_EQ(registry.GetNumericValue(kRoot, path, "Longest", 9), 0);
}

TEST_F(PrivateKey, AKeyWithoutPermissionIsReportedInTheSystemsWords) {
    deny("\\Locked", "0x6"); // setting values and creating keys
    const Error written =
        errorOf([&] { registry.SaveStringValue(kRoot, path + "\\Locked", "Name", "x"); });
    EXPECT_EQ(written.number(), ERROR_ACCESS_DENIED);
    EXPECT_EQ(written.source(), "Tollvane:SaveStringValue");
    EXPECT_EQ(written.description(), "There was an error writing the HKEY_CURRENT_USER\\" + path +
                                         "\\Locked registry key, " +
                                         lowerSystemText(ERROR_ACCESS_DENIED));
    deny("\\Unreadable", "0x1"); // querying values
    const Error read =
        errorOf([&] { registry.GetStringValue(kRoot, path + "\\Unreadable", "Name"); });
    EXPECT_EQ(read.number(), ERROR_ACCESS_DENIED);
    EXPECT_EQ(read.source(), "Tollvane:GetStringValue");
    EXPECT_EQ(registry.GetNumericValue(kRoot, path + "\\Unreadable", "Count", 9), 0);
    grantAll("\\Locked");
    grantAll("\\Unreadable");
}

/// Keys that grant the rights of one kind of work and nothing else: work that asks for more, or
/// that goes on with less, shows.
class ExactRights : public PrivateKey {
protected:
    void SetUp() override {
        PrivateKey::SetUp();
        ASSERT_TRUE(registry.SaveStringValue(kRoot, key, "Name", "x"));
        ASSERT_TRUE(registry.SaveNumericValue(kRoot, key, "Count", 7));
        ASSERT_TRUE(registry.SaveBinaryValue(kRoot, key, "Bytes", {1, 2}));
        ASSERT_TRUE(registry.SaveStringValue(kRoot, key + "\\Child", "Name", "x"));
    }
    void TearDown() override {
        grantAll(kBelow);
        PrivateKey::TearDown();
    }

    void grantOnly(DWORD mask) const {
        char rules[64];
        std::snprintf(rules, sizeof rules, "D:(A;;0x%lx;;;WD)", mask);
        setRules(kBelow, rules);
        HKEY opened = nullptr;
        ASSERT_EQ(RegOpenKeyExA(HKEY_CURRENT_USER, key.c_str(), 0, KEY_ALL_ACCESS, &opened),
                  ERROR_ACCESS_DENIED)
            << "the system does not judge these rights";
    }

    /// Runs the work with the rights of the mask, and sees it refused without any one of `parts`.
    template <class Work>
    void expectNeeds(DWORD mask, const std::vector<DWORD>& parts, Work work) {
        grantOnly(mask);
        EXPECT_NO_THROW(work()) << std::hex << mask;
        for (const DWORD part : parts) {
            grantOnly(mask & ~part);
            EXPECT_EQ(errorOf(work).number(), ERROR_ACCESS_DENIED) << "without " << part;
        }
    }

    // The key's owner may always read and change its rules.
    const std::vector<DWORD> read{KEY_QUERY_VALUE, KEY_ENUMERATE_SUB_KEYS, KEY_NOTIFY};
    const std::vector<DWORD> write{KEY_QUERY_VALUE, KEY_SET_VALUE, KEY_CREATE_SUB_KEY,
                                   KEY_ENUMERATE_SUB_KEYS, KEY_NOTIFY};
    const std::vector<DWORD> writeBytes{KEY_SET_VALUE, KEY_CREATE_SUB_KEY};

    static constexpr const char* kBelow = "\\Exact";
    std::string key = path + kBelow;
};

TEST_F(ExactRights, OfWritingAreThoseOfTextsNumbersAndDeletions) {
    expectNeeds(0x4001F, write,
                [&] { EXPECT_TRUE(registry.SaveStringValue(kRoot, key, "Name", "y")); });
    expectNeeds(0x4001F, write,
                [&] { EXPECT_TRUE(registry.SaveNumericValue(kRoot, key, "Count", 8)); });
    expectNeeds(0x4001F, write,
                [&] { EXPECT_TRUE(registry.SaveBooleanValue(kRoot, key, "On", true)); });
    expectNeeds(0x4001F, write, [&] { EXPECT_TRUE(registry.DeleteRegValue(kRoot, key, "Name")); });
}

TEST_F(ExactRights, OfReadingAreThoseOfValuesAndLists) {
    Texts texts;
    expectNeeds(0x20019, read,
                [&] { EXPECT_EQ(registry.GetStringValue(kRoot, key, "Name"), "x"); });
    expectNeeds(0x20019, read,
                [&] { EXPECT_EQ(registry.GetBinaryValue(kRoot, key, "Bytes").size(), 2U); });
    expectNeeds(0x20019, {}, [&] {
        EXPECT_EQ(registry.GetNumericValue(kRoot, key, "Count"), 7); // says 0 when refused
        EXPECT_EQ(registry.EnumSubKeys(kRoot, key, texts), 1);
        EXPECT_EQ(registry.EnumStringValues(kRoot, key, texts), 3);
    });
}

TEST_F(ExactRights, OfWritingBytesAreItsOwn) {
    expectNeeds(0x20006, writeBytes,
                [&] { EXPECT_TRUE(registry.SaveBinaryValue(kRoot, key, "Bytes", {3})); });
}

TEST_F(PrivateKey, TreesAreListedAndDeleted) {
    for (const char* below : {"\\Tree\\A\\Deep", "\\Tree\\B", "\\Neighbour"}) {
        EXPECT_TRUE(registry.SaveStringValue(kRoot, path + below, "Name", below));
    }
    Texts texts;
    EXPECT_EQ(registry.EnumSubKeys(kRoot, path + "\\Tree", texts), 2);
    EXPECT_EQ(texts, (Texts{"A", "B"}));
    EXPECT_EQ(registry.EnumStringValues(kRoot, path + "\\Tree\\B", texts), 1);
    EXPECT_EQ(texts, Texts{"\\Tree\\B"});
    EXPECT_TRUE(registry.DeleteRegKey(kRoot, path, "Tree"));
    EXPECT_EQ(registry.EnumSubKeys(kRoot, path, texts), 1);
    EXPECT_EQ(texts, Texts{"Neighbour"});
}

TEST_F(PrivateKey, AValueIsDeletedAndAMissingOneIsNoError) {
    EXPECT_TRUE(registry.SaveStringValue(kRoot, path, "Name", "x"));
    EXPECT_TRUE(registry.DeleteRegValue(kRoot, path, "Name"));
    EXPECT_EQ(registry.GetStringValue(kRoot, path, "Name", "none"), "none");
    EXPECT_TRUE(registry.DeleteRegValue(kRoot, path, "Name"));
    EXPECT_EQ(errorOf([&] { registry.DeleteRegValue(kRoot, path + "\\None", "Name"); }).number(),
              ERROR_FILE_NOT_FOUND);
}

/// The machine's branch is redirected into the private key while such a test runs, so that the
/// settings of the machine stay as they are.
class MachineSettings : public PrivateKey {
protected:
    void SetUp() override {
        PrivateKey::SetUp();
        host.use(static_cast<Registry&>(system));
        ASSERT_EQ(RegCreateKeyExA(HKEY_CURRENT_USER, (path + "\\Machine").c_str(), 0, nullptr, 0,
                                  KEY_ALL_ACCESS, nullptr, &machine_, nullptr),
                  ERROR_SUCCESS);
        ASSERT_EQ(RegOverridePredefKey(HKEY_LOCAL_MACHINE, machine_), ERROR_SUCCESS);
    }
    void TearDown() override {
        RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
        RegCloseKey(machine_);
        PrivateKey::TearDown();
    }

    std::string listing(const std::string& below) const {
        return regQuery("\\Machine\\Software\\Norrow Programs\\Tollvane" + below);
    }

    TestDesktop host;

private:
    HKEY machine_ = nullptr;
};

TEST_F(MachineSettings, AreStoredUnderTheirKeysNamesAndTypes) {
    AppProperties settings(host.desktop());
    settings.SetCompanyName("Smith & Sons");
    settings.SetCompanyStreet("1 Main Street");
    settings.SetCompanyAdditionalAddress("Back door");
    settings.SetCompanyCity("Springfield");
    settings.SetCompanyState("IL");
    settings.SetCompanyZip("62701");
    settings.SetCompanyPhone("555-0100");
    settings.SetCompanyLocation(5);
    settings.SetFormatType(3);
    settings.SetDefaultInvoiceNumber(false);
    settings.SetInvoiceNumberForPONumber(false);
    settings.SetShopAddressForBillToAddress(false);
    settings.SetShowRefundVoidWarning(true);
    settings.SetInvoiceNumberRequired(true);
    settings.SetPONumberRequired(true);
    settings.SetCardCodeRequired(false);
    settings.SetBillToAddressRequired(true);
    settings.SetDescriptionRequired(true);
    settings.SaveWindowPosition(1200, -15);
    EXPECT_TRUE(host.boxes.shown().empty());

    const std::string company = listing("\\Company Information");
    expectListed(company, "Name", "REG_SZ", "Smith & Sons");
    expectListed(company, "Street", "REG_SZ", "1 Main Street");
    expectListed(company, "Additional Address", "REG_SZ", "Back door");
    expectListed(company, "City", "REG_SZ", "Springfield");
    expectListed(company, "State", "REG_SZ", "IL");
    expectListed(company, "Zip", "REG_SZ", "62701");
    expectListed(company, "Phone", "REG_SZ", "555-0100");
    expectListed(company, "Location", "REG_DWORD", "0x5");
    const std::string options = listing("\\Options");
    expectListed(options, "FormatType", "REG_DWORD", "0x3");
    expectListed(options, "DefaultInvoiceNumbers", "REG_DWORD", "0x0");
    expectListed(options, "InvoiceNumberForPONumber", "REG_DWORD", "0x0");
    expectListed(options, "ShopAddressForBillToAddress", "REG_DWORD", "0x0");
    expectListed(options, "ShowRefundVoidWarning", "REG_DWORD", "0xffffffff");
    const std::string required = listing("\\Options\\Required Fields");
    expectListed(required, "InvoiceNumber", "REG_DWORD", "0xffffffff");
    expectListed(required, "PONumber", "REG_DWORD", "0xffffffff");
    expectListed(required, "CardCode", "REG_DWORD", "0x0");
    expectListed(required, "BillToAddress", "REG_DWORD", "0xffffffff");
    expectListed(required, "Description", "REG_DWORD", "0xffffffff");
    const std::string window = listing("\\Window");
    expectListed(window, "X", "REG_DWORD", "0x4b0");
    expectListed(window, "Y", "REG_DWORD", "0xfffffff1");
}

TEST_F(MachineSettings, ThatMayNotBeWrittenAreReportedInABox) {
    const std::string company =
        "\\Machine\\Software\\Norrow Programs\\Tollvane\\Company Information";
    deny(company, "0x6");
    AppProperties(host.desktop()).SetCompanyName("Smith & Sons");
    EXPECT_EQ(host.boxes.last().title, "Tollvane:SaveStringValue");
    EXPECT_EQ(host.boxes.last().text,
              "There was an error saving the company name.\r\n\r\nError: 5, There was an error "
              "writing the HKEY_LOCAL_MACHINE\\Software\\Norrow Programs\\Tollvane\\Company "
              "Information registry key, " +
                  lowerSystemText(ERROR_ACCESS_DENIED));
    grantAll(company);
}

} // namespace
} // namespace tollvane::test
