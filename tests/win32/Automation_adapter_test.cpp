// Late-bound calls of components, on a class that the test program registers itself.

#include "platform/Error.h"
#include "platform/win32/ComHandles.h"
#include "platform/win32/Win32Automation.h"
#include "tests/win32/ComponentDouble.h"

#include <functional>
#include <gtest/gtest.h>

namespace tollvane::test {
namespace {

Error raisedBy(const std::function<void()>& body) {
    try {
        body();
    } catch (const Error& error) {
        return error;
    }
    ADD_FAILURE() << "nothing was raised";
    return {0, "", ""};
}

class AutomationAdapter : public testing::Test {
protected:
    Variant echo(const Variant& value) { return object->call("Echo", {{value}}); }
    std::int32_t typeOf(const Variant& value, bool byReference) {
        return std::get<std::int32_t>(object->call("TypeOf", {{value, byReference}}));
    }

    win32::ComApartment com;
    ComponentDouble component;
    win32::Win32Automation automation;
    ObjectRef object = automation.create(ComponentDouble::progId, "");
};

TEST_F(AutomationAdapter, ValuesComeBackAsTheyWere) {
    EXPECT_EQ(echo(true), Variant(true));
    EXPECT_EQ(echo(std::int32_t{-7}), Variant(std::int32_t{-7}));
    EXPECT_EQ(echo(2.5), Variant(2.5));
    EXPECT_EQ(echo(Money::fromScaled(-123'456)), Variant(Money::fromScaled(-123'456)));
    EXPECT_EQ(echo(DateTime{2027, 3, 1, 14, 5, 9}), Variant(DateTime{2027, 3, 1, 14, 5, 9}));
    EXPECT_EQ(echo(std::string("caf\xE9")), Variant(std::string("caf\xE9")));
    EXPECT_EQ(echo(std::string()), Variant(std::string()));
    EXPECT_EQ(echo(std::monostate{}), Variant(std::monostate{}));
}

TEST_F(AutomationAdapter, CardDataTravelsAsText) {
    EXPECT_EQ(echo(SecretText("4111111111111111")), Variant(std::string("4111111111111111")));
}

TEST_F(AutomationAdapter, ValuesHaveTheSystemsTypes) {
    EXPECT_EQ(typeOf(true, false), VT_BOOL);
    EXPECT_EQ(typeOf(std::int32_t{1}, false), VT_I4);
    EXPECT_EQ(typeOf(1.5, false), VT_R8);
    EXPECT_EQ(typeOf(Money::fromUnits(1), false), VT_CY);
    EXPECT_EQ(typeOf(DateTime{2027, 3, 1}, false), VT_DATE);
    EXPECT_EQ(typeOf(std::string("x"), false), VT_BSTR);
    EXPECT_EQ(typeOf(ObjectRef{}, false), VT_DISPATCH);
}

TEST_F(AutomationAdapter, AnArgumentByReferenceSaysSo) {
    EXPECT_EQ(typeOf(std::string("x"), true), VT_BSTR | VT_BYREF);
    EXPECT_EQ(typeOf(std::int32_t{4}, true), VT_I4 | VT_BYREF);
    EXPECT_EQ(object->call("Echo", {{std::string("by reference"), true}}),
              Variant(std::string("by reference")));
}

TEST_F(AutomationAdapter, AStoredPropertyIsReadBack) {
    object->put("Item", std::string("kept"));
    EXPECT_EQ(object->get("Item"), Variant(std::string("kept")));
}

TEST_F(AutomationAdapter, AnObjectIsAssignedAndUsedThroughItsProperty) {
    const ObjectRef inner = automation.create(ComponentDouble::progId, "");
    object->putReference("Item", inner);
    const ObjectRef back = std::get<ObjectRef>(object->get("Item"));
    ASSERT_TRUE(back);
    EXPECT_EQ(back->call("Echo", {{std::int32_t{5}}}), Variant(std::int32_t{5}));
    object->putReference("Item", {});
}

TEST_F(AutomationAdapter, AnObjectIsPutWhereItCannotBeAssigned) {
    EXPECT_NO_THROW(object->putReference("Put", object));
}

TEST_F(AutomationAdapter, AMemberThatDoesNotExistRaises438) {
    for (const auto& use : std::initializer_list<std::function<void()>>{
             [&] { object->call("Missing"); }, [&] { object->get("Missing"); },
             [&] { object->put("Missing", true); }}) {
        const Error error = raisedBy(use);
        EXPECT_EQ(error.number(), 438);
        EXPECT_EQ(error.description(), "Object doesn't support this property or method");
    }
}

TEST_F(AutomationAdapter, AComponentsOwnErrorKeepsNumberSourceAndText) {
    const Error error = raisedBy([&] { object->call("Fail", {{std::int32_t{1234}}}); });
    EXPECT_EQ(error.number(), 1234);
    EXPECT_EQ(error.source(), "double");
    EXPECT_EQ(error.description(), "It failed");
}

TEST_F(AutomationAdapter, AResultOfAComponentKeepsItsNumberAndText) {
    const auto result = static_cast<std::int32_t>(0x800407D0);
    const Error error = raisedBy([&] { object->call("FailWith", {{result}}); });
    EXPECT_EQ(error.number(), -2147219504);
    EXPECT_EQ(error.description(), "A result");
}

TEST_F(AutomationAdapter, AResultOfTheControlFacilityIsItsPlainNumber) {
    const auto result = static_cast<std::int32_t>(0x800A01A8);
    const Error error = raisedBy([&] { object->call("FailWith", {{result}}); });
    EXPECT_EQ(error.number(), 424);
}

TEST_F(AutomationAdapter, AnErrorThatIsFilledInLateIsAskedFor) {
    const Error error = raisedBy([&] { object->call("Late"); });
    EXPECT_EQ(error.number(), 77);
    EXPECT_EQ(error.description(), "Filled in late");
}

struct Mapped {
    HRESULT result;
    long number;
    const char* description;
};

TEST_F(AutomationAdapter, KnownResultsHaveTheFamilysNumbersAndTexts) {
    constexpr const char* gone = "The remote server machine does not exist or is unavailable";
    const Mapped all[] = {
        {DISP_E_TYPEMISMATCH, 13, "Type mismatch"},
        {DISP_E_OVERFLOW, 6, "Overflow"},
        {DISP_E_MEMBERNOTFOUND, 438, "Object doesn't support this property or method"},
        {DISP_E_BADPARAMCOUNT, 450, "Wrong number of arguments or invalid property assignment"},
        {REGDB_E_CLASSNOTREG, 429, "ActiveX component can't create object"},
        {RPC_E_DISCONNECTED, 462, gone},
        {HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE), 462, gone},
    };
    for (const Mapped& row : all) {
        const Error error = raisedBy([&] { object->call("Return", {{std::int32_t{row.result}}}); });
        EXPECT_EQ(error.number(), row.number) << std::hex << row.result;
        EXPECT_EQ(error.description(), row.description) << std::hex << row.result;
    }
}

TEST_F(AutomationAdapter, AnyOtherResultKeepsItsNumberAndTheSystemsText) {
    const Error error = raisedBy([&] { object->call("Return", {{std::int32_t{E_ACCESSDENIED}}}); });
    EXPECT_EQ(error.number(), E_ACCESSDENIED);
    EXPECT_FALSE(error.description().empty());
    EXPECT_EQ(error.description().find_first_of("\r\n"), std::string::npos);
}

TEST_F(AutomationAdapter, AnUnregisteredProgIdRaises429) {
    const Error error = raisedBy([&] { automation.create("Tollvane.NoSuchClass", ""); });
    EXPECT_EQ(error.number(), 429);
    EXPECT_EQ(error.description(), "ActiveX component can't create object");
}

TEST_F(AutomationAdapter, AClassIsCreatedByItsIdentityWithItsInterface) {
    const ObjectRef made =
        automation.createClass(ComponentDouble::classId, ComponentDouble::interfaceId);
    EXPECT_EQ(made->call("Echo", {{std::int32_t{3}}}), Variant(std::int32_t{3}));
}

TEST_F(AutomationAdapter, AClassWithoutTheInterfaceIsRefused) {
    const std::string other = "{5D2F0C51-8A7B-4F0B-9C1E-6F6C1B3D7AFF}";
    const Error error = raisedBy([&] { automation.createClass(ComponentDouble::classId, other); });
    EXPECT_EQ(error.number(), E_NOINTERFACE);
}

TEST_F(AutomationAdapter, AnUnregisteredClassRaises429) {
    const std::string other = "{5D2F0C51-8A7B-4F0B-9C1E-6F6C1B3D7AFE}";
    const Error error =
        raisedBy([&] { automation.createClass(other, ComponentDouble::interfaceId); });
    EXPECT_EQ(error.number(), 429);
}

TEST_F(AutomationAdapter, ThisComputersOwnNameIsThisComputer) {
    char name[MAX_COMPUTERNAME_LENGTH + 1];
    DWORD size = sizeof name;
    ASSERT_TRUE(GetComputerNameA(name, &size));
    EXPECT_TRUE(automation.create(ComponentDouble::progId, name));
}

} // namespace
} // namespace tollvane::test
