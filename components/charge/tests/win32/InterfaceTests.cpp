// The registered component through its interfaces, as a compiled client uses it.
#include "components/common/ComPtr.h"
#include "components/common/ComText.h"
#include "components/common/ControlName.h"

#include "zendacard.h"

#include <gtest/gtest.h>

#include <objbase.h>

namespace tollvane::charge {
namespace {

using com::Bstr;
using com::ComPtr;

class Apartment {
public:
    Apartment() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    Apartment(const Apartment&) = delete;
    Apartment& operator=(const Apartment&) = delete;
    ~Apartment() { CoUninitialize(); }
};

class InterfaceTest : public testing::Test {
protected:
    template <class Interface>
    static ComPtr<Interface> create(const CLSID& classId, const IID& iid) {
        ComPtr<Interface> object;
        EXPECT_EQ(S_OK,
                  CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, iid, object.putVoid()));
        return object;
    }

    Apartment apartment_;
};

TEST_F(InterfaceTest, TheProgIdNamesTheChargeComponent) {
    CLSID classId{};
    ASSERT_EQ(S_OK, CLSIDFromProgID(L"ZendaSwiftill.Tollvane", &classId));
    EXPECT_TRUE(IsEqualCLSID(CLSID_Tollvane, classId));
    ASSERT_EQ(S_OK, CLSIDFromProgID(L"ZendaSwiftill.Tollvane.1", &classId));
    EXPECT_TRUE(IsEqualCLSID(CLSID_Tollvane, classId));
}

TEST_F(InterfaceTest, CheckCardNumberIsTheCheckersFirstOwnOperation) {
    auto checker = create<ICardNumberChecker>(CLSID_CardNumberChecker, IID_ICardNumberChecker);
    ASSERT_TRUE(checker);
    using Operation = HRESULT(STDMETHODCALLTYPE*)(void*, BSTR, VARIANT_BOOL*);
    constexpr std::size_t operationsOfDispatch = 7;
    void** const table = *reinterpret_cast<void***>(checker.get());
    const auto operation = reinterpret_cast<Operation>(table[operationsOfDispatch]);
    VARIANT_BOOL answer = VARIANT_FALSE;
    const Bstr good(std::wstring_view(L"4111111111111111"));
    EXPECT_EQ(S_OK, operation(checker.get(), good.get(), &answer));
    EXPECT_EQ(VARIANT_TRUE, answer);
    EXPECT_EQ(S_OK, operation(checker.get(), nullptr, &answer)) << "no text is the empty text";
    EXPECT_EQ(VARIANT_FALSE, answer);
}

TEST_F(InterfaceTest, ErrorsCarrySourceAndDescription) {
    auto charge = create<ITollvane>(CLSID_Tollvane, IID_ITollvane);
    ASSERT_TRUE(charge);
    ComPtr<ISupportErrorInfo> support;
    ASSERT_EQ(S_OK, charge->QueryInterface(IID_ISupportErrorInfo, support.putVoid()));
    EXPECT_EQ(S_OK, support->InterfaceSupportsErrorInfo(IID_ITollvane));
    EXPECT_EQ(S_FALSE, support->InterfaceSupportsErrorInfo(IID_IUnknown));
    ComPtr<ITransactionField> field;
    const Bstr name(std::wstring_view(L"x_nonsense"));
    EXPECT_EQ(static_cast<HRESULT>(0x80040BB9), charge->TransactionField(name.get(), field.put()));
    EXPECT_FALSE(field);
    ComPtr<IErrorInfo> info;
    ASSERT_EQ(S_OK, GetErrorInfo(0, info.put()));
    Bstr source;
    Bstr description;
    info->GetSource(source.put());
    info->GetDescription(description.put());
    EXPECT_EQ(L"Zendacard.Fields", com::view(source.get()));
    EXPECT_EQ(L"The gateway has no field named \"x_nonsense\".", com::view(description.get()));
}

TEST_F(InterfaceTest, MissingOutArgumentsAreRefused) {
    auto charge = create<ITollvane>(CLSID_Tollvane, IID_ITollvane);
    ASSERT_TRUE(charge);
    EXPECT_EQ(E_POINTER, charge->get_City(nullptr));
    EXPECT_EQ(E_POINTER, charge->get_Amount(nullptr));
    EXPECT_EQ(E_POINTER, charge->AuthorizeAndCapture(nullptr));
    EXPECT_EQ(E_POINTER, charge->TransactionField(nullptr, nullptr));
    EXPECT_EQ(E_POINTER, charge->LogLoggedInUser(nullptr));
}

TEST_F(InterfaceTest, AFieldOutlivesTheComponent) {
    ComPtr<ITransactionField> field;
    {
        auto charge = create<ITollvane>(CLSID_Tollvane, IID_ITollvane);
        ASSERT_TRUE(charge);
        const Bstr name(std::wstring_view(L"x_city"));
        ASSERT_EQ(S_OK, charge->TransactionField(name.get(), field.put()));
    }
    const Bstr value(std::wstring_view(L"Springfield"));
    EXPECT_EQ(S_OK, field->put_cTransactionFields_Value(value.get()));
    Bstr back;
    EXPECT_EQ(S_OK, field->get_cTransactionFields_Value(back.put()));
    EXPECT_EQ(L"Springfield", com::view(back.get()));
}

TEST_F(InterfaceTest, ObjectsCannotBeAggregatedNorAskedForStrangeInterfaces) {
    auto charge = create<ITollvane>(CLSID_Tollvane, IID_ITollvane);
    ASSERT_TRUE(charge);
    ComPtr<IUnknown> other;
    EXPECT_EQ(CLASS_E_NOAGGREGATION,
              CoCreateInstance(CLSID_Tollvane, charge.get(), CLSCTX_INPROC_SERVER, IID_IUnknown,
                               other.putVoid()));
    EXPECT_EQ(E_NOINTERFACE, charge->QueryInterface(IID_IPersist, other.putVoid()));
}

TEST(ControlName, AWindowAnswersWithItsName) {
    const HWND window =
        CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
    ASSERT_NE(nullptr, window);
    const UINT message = RegisterWindowMessageW(L"WM_GETCONTROLNAME");
    wchar_t buffer[32] = L"untouched";
    EXPECT_EQ(0, SendMessageW(window, message, 32, reinterpret_cast<LPARAM>(buffer)));
    com::setControlName(window, L"txtAmount");
    EXPECT_EQ(9, SendMessageW(window, message, 32, reinterpret_cast<LPARAM>(buffer)));
    EXPECT_STREQ(L"txtAmount", buffer);
    EXPECT_EQ(9, SendMessageW(window, message, 0, 0));
    EXPECT_EQ(3, SendMessageW(window, message, 4, reinterpret_cast<LPARAM>(buffer)));
    EXPECT_STREQ(L"txt", buffer);
    DestroyWindow(window);
}

} // namespace
} // namespace tollvane::charge
