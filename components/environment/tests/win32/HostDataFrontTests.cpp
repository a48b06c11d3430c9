#include "components/environment/HostDataFront.h"

#include "components/common/ComText.h"
#include "components/environment/Automation.h"
#include "components/environment/tests/win32/FakeHostData.h"

#include <gtest/gtest.h>

#include <objbase.h>

#include <functional>
#include <string>

namespace tollvane::environment {
namespace {

constexpr LONG kPaymentRecord = 17;
constexpr LONG kOtherKind = 3;

class HostDataFrontTest : public testing::Test {
protected:
    HostDataFrontTest() {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        server.learnToStorePayments();
    }
    ~HostDataFrontTest() override { CoUninitialize(); }

    Remote offered() { return Remote(fronted(&server)); }
    static Remote newRecord(const Remote& front) {
        Remote record = front.object(L"SafeCreateObj", {argument(kPaymentRecord)});
        record.call(L"GetrecbyIDNumber", {argument(LONG{-1})});
        record.call(L"AddNew");
        return record;
    }
    static void set(const Remote& record, const wchar_t* field, const wchar_t* value) {
        const com::Bstr name{std::wstring_view(field)};
        const com::Bstr text{std::wstring_view(value)};
        record.object(L"Item", {argument(name)}).put(L"Value", argument(text));
    }
    static com::ComponentError errorOf(const std::function<void()>& call) {
        try {
            call();
        } catch (const com::ComponentError& error) {
            return error;
        }
        return {0, "", "no error"};
    }

    FakeHostData server;
};

TEST_F(HostDataFrontTest, AServerThatStoresNoPaymentInOneCallIsOfferedAsItIs) {
    server.members.erase(L"StorePayment");
    EXPECT_EQ(fronted(&server).get(), &server);
}

TEST_F(HostDataFrontTest, AServerThatCannotBeAskedIsNotTakenForOneWithoutTheMember) {
    server.failure = HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE);
    EXPECT_EQ(errorOf([&] { (void)fronted(&server); }).number(),
              static_cast<std::uint32_t>(server.failure));
}

TEST_F(HostDataFrontTest, EverythingElseReachesTheServerUnderItsOwnNumbers) {
    const Remote front = offered();
    EXPECT_EQ(front.number(L"Location"), FakeHostData::storedId);
    (void)front.object(L"SafeCreateObj", {argument(kOtherKind)});
    EXPECT_EQ(server.heard, L"4;21 3;");
}

TEST_F(HostDataFrontTest, AMemberThatTheServerLacksIsMissing) {
    EXPECT_EQ(errorOf([&] { (void)offered().call(L"Nonsense"); }).number(),
              static_cast<std::uint32_t>(DISP_E_UNKNOWNNAME));
}

TEST_F(HostDataFrontTest, ARecordIsHandedOverInOneCall) {
    const Remote front = offered();
    const int asked = server.namesAsked;
    const Remote record = newRecord(front);
    set(record, L"Zip", L"1");
    set(record, L"PaidBy", L"Charge");
    EXPECT_EQ(server.heard, L"");
    record.call(L"Update");
    EXPECT_EQ(server.heard, L"32 Zip=1 PaidBy=Charge;");
    EXPECT_EQ(server.namesAsked, asked);
}

TEST_F(HostDataFrontTest, AFieldThatIsSetAgainKeepsItsLastValue) {
    const Remote front = offered();
    const Remote record = newRecord(front);
    set(record, L"Zip", L"1");
    set(record, L"PaidBy", L"Charge");
    set(record, L"ZIP", L"2");
    record.call(L"Update");
    EXPECT_EQ(server.heard, L"32 Zip=2 PaidBy=Charge;");
}

TEST_F(HostDataFrontTest, AddNewForgetsWhatWasNotStored) {
    const Remote front = offered();
    const Remote record = newRecord(front);
    set(record, L"Zip", L"1");
    record.call(L"AddNew");
    record.call(L"Update");
    EXPECT_EQ(server.heard, L"32;");
}

TEST_F(HostDataFrontTest, AKindGivenByReferenceIsUnderstood) {
    LONG kind = kPaymentRecord;
    VARIANT reference;
    VariantInit(&reference);
    V_VT(&reference) = VT_BYREF | VT_I4;
    V_I4REF(&reference) = &kind;
    const Remote front = offered();
    (void)front.object(L"SafeCreateObj", {reference}).call(L"AddNew");
    EXPECT_EQ(server.heard, L"");
}

TEST_F(HostDataFrontTest, TheServersErrorArrivesAsItIs) {
    const Remote front = offered();
    const Remote record = newRecord(front);
    set(record, L"Zip", L"1");
    server.failure = static_cast<HRESULT>(com::applicationErrorBase + 3004);
    server.source = L"dcZenda32";
    server.description = L"The disk is full.";
    const auto error = errorOf([&] { record.call(L"Update"); });
    EXPECT_EQ(error.number(), com::applicationErrorBase + 3004);
    EXPECT_EQ(error.source(), "dcZenda32");
    EXPECT_EQ(error.description(), "The disk is full.");
}

TEST_F(HostDataFrontTest, WhatWasNotStoredCanBeStoredAgain) {
    const Remote front = offered();
    const Remote record = newRecord(front);
    set(record, L"Zip", L"1");
    server.failure = E_FAIL;
    EXPECT_NE(errorOf([&] { record.call(L"Update"); }).number(), 0U);
    server.failure = S_OK;
    server.heard.clear();
    record.call(L"Update");
    EXPECT_EQ(server.heard, L"32 Zip=1;");
}

TEST_F(HostDataFrontTest, AServerThatIsGoneIsToldByItsBareResult) {
    const Remote front = offered();
    const Remote record = newRecord(front);
    server.failure = HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE);
    const auto error = errorOf([&] { record.call(L"Update"); });
    EXPECT_EQ(error.number(), static_cast<std::uint32_t>(server.failure));
    EXPECT_EQ(error.source(), "");
    EXPECT_EQ(errorOf([&] { (void)front.call(L"Location"); }).number(),
              static_cast<std::uint32_t>(server.failure));
}

TEST_F(HostDataFrontTest, OtherInterfacesAreNotOffered) {
    const auto front = fronted(&server);
    void* found = &server;
    EXPECT_EQ(front->QueryInterface(IID_IMarshal, &found), E_NOINTERFACE);
    EXPECT_EQ(found, nullptr);
}

TEST_F(HostDataFrontTest, EverythingIsGivenBack) {
    {
        const Remote front = offered();
        const Remote record = newRecord(front);
        set(record, L"Zip", L"1");
        record.call(L"Update");
        EXPECT_GT(server.references, 1U);
    }
    EXPECT_EQ(server.references, 1U);
}

} // namespace
} // namespace tollvane::environment
