// Whatever the registry and the INI file hold: every setting is read or refused by its rules, and
// the program starts and takes a charge, or says once why it does not.

#include "entry/ChargeInfo.h"
#include "settings/AppProperties.h"
#include "tests/fuzz/Script.h"
#include "tests/scenarios/Till.h"

#include <algorithm>
#include <cstring>
#include <optional>

namespace {

using namespace tollvane;
using namespace tollvane::test;

const std::string kSettings = "HKEY_LOCAL_MACHINE\\Software\\Norrow Programs\\Tollvane";
constexpr std::size_t kLongestText = 254;

using Bytes = std::vector<std::uint8_t>;
template <class Value>
using Getter = Value (AppProperties::*)() const;

struct TextSetting {
    const char* name;
    Getter<std::string> get;
};
struct NumberSetting {
    const char* key;
    const char* name;
    std::int32_t missing;
    Getter<std::int32_t> get;
};
struct SwitchSetting {
    const char* key;
    const char* name;
    bool missing;
    Getter<bool> get;
};

using Settings = AppProperties;
constexpr TextSetting kTexts[] = {{"Name", &Settings::CompanyName},
                                  {"Street", &Settings::CompanyStreet},
                                  {"Additional Address", &Settings::CompanyAdditionalAddress},
                                  {"City", &Settings::CompanyCity},
                                  {"State", &Settings::CompanyState},
                                  {"Zip", &Settings::CompanyZip},
                                  {"Phone", &Settings::CompanyPhone}};
constexpr NumberSetting kNumbers[] = {
    {"\\Company Information", "Location", 0, &Settings::CompanyLocation},
    {"\\Options", "FormatType", 0, &Settings::FormatType}};
constexpr SwitchSetting kSwitches[] = {
    {"\\Options", "DefaultInvoiceNumbers", true, &Settings::DefaultInvoiceNumber},
    {"\\Options", "InvoiceNumberForPONumber", true, &Settings::InvoiceNumberForPONumber},
    {"\\Options", "ShopAddressForBillToAddress", true, &Settings::ShopAddressForBillToAddress},
    {"\\Options\\Required Fields", "InvoiceNumber", false, &Settings::InvoiceNumberRequired},
    {"\\Options\\Required Fields", "PONumber", false, &Settings::PONumberRequired},
    {"\\Options\\Required Fields", "CardCode", true, &Settings::CardCodeRequired},
    {"\\Options\\Required Fields", "BillToAddress", false, &Settings::BillToAddressRequired},
    {"\\Options\\Required Fields", "Description", false, &Settings::DescriptionRequired},
    {"\\Options", "ShowRefundVoidWarning", false, &Settings::ShowRefundVoidWarning}};

struct Stored {
    std::uint32_t type = 0;
    Bytes data;
};

std::optional<Stored> storedFrom(Script& script) {
    const std::size_t kind = script.next();
    const std::string text = kind % 8 < 2 ? std::string() : script.nextText();
    Bytes data(text.begin(), text.end());
    switch (kind % 8) {
    case 0: return std::nullopt;
    case 1: data.resize(kind); return Stored{registry::string, data};
    case 2:
    case 3: data.push_back(0); return Stored{registry::string, data};
    case 4: return Stored{registry::string, data};
    case 5: data.resize(4); return Stored{registry::dword, data};
    default: return Stored{static_cast<std::uint32_t>(kind / 8), data};
    }
}

std::uint32_t numberIn(const Stored& stored) {
    std::uint32_t number = 0;
    std::memcpy(&number, stored.data.data(), sizeof number);
    return number;
}

class SettingsOfAnyKind {
public:
    SettingsOfAnyKind(Till& till, Script& script)
        : till_(till), properties_(till.desktop.desktop()) {
        for (const TextSetting& row : kTexts) {
            if (const auto stored = storedFrom(script)) {
                add("\\Company Information", row.name, *stored);
            }
            readText(row);
        }
        for (const NumberSetting& row : kNumbers) {
            const auto stored = storedFrom(script);
            if (stored) {
                add(row.key, row.name, *stored);
            }
            const std::int32_t number = (properties_.*row.get)();
            require(stored || number == row.missing, "a missing number has its default");
            require(!stored || stored->type != registry::dword || stored->data.size() != 4 ||
                        number == static_cast<std::int32_t>(numberIn(*stored)),
                    "a stored number is read");
        }
        for (const SwitchSetting& row : kSwitches) {
            const auto stored = storedFrom(script);
            if (stored) {
                add(row.key, row.name, *stored);
            }
            const bool on = (properties_.*row.get)();
            require(stored || on == row.missing, "a missing switch has its default");
            require(!stored || stored->type != registry::dword || stored->data.size() != 4 ||
                        on == (numberIn(*stored) != 0),
                    "a stored switch is read");
        }
        addPosition(script);
        require(till.desktop.registry.openKeys() == 0, "every key is closed");
    }

private:
    void add(const std::string& key, const char* name, const Stored& stored) {
        till_.desktop.registry.addValue(kSettings + key, name, stored.type, stored.data);
    }

    void readText(const TextSetting& row) {
        const RegistryValue* stored =
            till_.desktop.registry.value(kSettings + "\\Company Information", row.name);
        try {
            const std::string text = (properties_.*row.get)();
            require(stored != nullptr || text.empty(), "a missing text is empty");
            require(stored == nullptr || stored->type == registry::string || text.empty(),
                    "only texts are read as texts");
            requireText(stored, text);
        } catch (const Error& error) {
            require(stored != nullptr, "a missing text raises nothing");
            require(!isPlain(*stored), "a plain text is read");
            require(error.source().ends_with(":GetStringValue"), "the error says where it arose");
        }
    }
    static bool isPlain(const RegistryValue& stored) {
        return stored.type == registry::string && !stored.data.empty() &&
               stored.data.size() <= kLongestText && stored.data.back() == 0 &&
               std::count(stored.data.begin(), stored.data.end(), 0) == 1;
    }
    static void requireText(const RegistryValue* stored, const std::string& text) {
        if (stored != nullptr && isPlain(*stored)) {
            require(text == std::string(stored->data.begin(), stored->data.end() - 1),
                    "a stored text is read as it is");
        }
    }

    void addPosition(Script& script) {
        till_.desktop.registry.addNumber(kSettings + "\\Window", "X",
                                         static_cast<std::uint32_t>(script.nextPair() * 65'537));
        till_.desktop.registry.addNumber(kSettings + "\\Window", "Y",
                                         static_cast<std::uint32_t>(script.nextPair()));
        for (const char* edge : {"Left", "Top"}) {
            if (script.next() % 2 == 0) {
                till_.desktop.files.setIni("CARDAUTH.INI", "Form", edge, script.nextText());
            }
        }
        const WindowPosition place = properties_.GetWindowPosition();
        require(place.X <= till_.desktop.screen.widthInTwips() &&
                    place.Y <= till_.desktop.screen.heightInTwips(),
                "a stored place lies on the screen");
    }

    Till& till_;
    AppProperties properties_;
};

void requireClean(Till& till) {
    for (const std::string& error : till.desktop.escaped.noted()) {
        require(false, "escaped: " + error);
    }
    require(till.desktop.registry.openKeys() == 0, "every key is closed");
}

void chargeOnce(Till& till) {
    till.fillCharge();
    till.submit();
    require(till.operations().size() <= 1, "one charge at most");
    require(till.program().TransactionApproved() == (till.operations().size() == 1),
            "what was charged is shown as approved");
    require(till.form().mousePointer() == MousePointer::standard, "the pointer is the usual one");
    require(till.button("cmdCancel").enabled(), "the form can be left");
    till.press("cmdCancel");
    require(!till.isOpen(), "the form is closed");
    require(till.desktop.charge.freed == 1, "the charge component is given back");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Script script(data, size);
    Till till;
    till.desktop.boxes.whileOpen = [&](const Message& box) {
        if (box.buttons != MessageButtons::ok) {
            till.desktop.boxes.answer(MessageAnswer::no);
        }
    };
    SettingsOfAnyKind(till, script);
    till.start();
    if (till.isOpen()) {
        till.boxes();
        chargeOnce(till);
    } else {
        require(!till.boxes().empty(), "a start that fails says so");
    }
    requireClean(till);
    return 0;
}
