// The component as the program drives it, by names and variants: what a call leaves in memory.
#include "components/common/ComPtr.h"
#include "components/common/ComText.h"

#include "zendacard.h"

#include <gtest/gtest.h>

#include <objbase.h>

#include <string>
#include <string_view>

#ifdef __MINGW32__
extern "C" void SetOaNoCache(); // its headers leave it out
#endif

namespace tollvane::charge {
namespace {

using com::Bstr;
using com::ComPtr;

constexpr std::wstring_view kNumber = L"4012888642135970";

// A text that ends in a number and is longer than what else a call keeps on the heap, so that
// nothing else overwrites it once it is freed.
std::wstring textWith(std::wstring_view end) {
    return std::wstring(500, L'x').append(end);
}

// How often the text lies in blocks that were given back to the process's heap.
int copiesInFreedMemory(std::wstring_view text = kNumber) {
    const HANDLE heap = GetProcessHeap();
    PROCESS_HEAP_ENTRY entry{};
    int found = 0;
    HeapLock(heap);
    while (HeapWalk(heap, &entry) != FALSE) {
        if (entry.wFlags != 0 || entry.cbData == 0)
            continue;
        const std::wstring_view block(static_cast<const wchar_t*>(entry.lpData),
                                      entry.cbData / sizeof(wchar_t));
        for (auto at = block.find(text); at != std::wstring_view::npos;
             at = block.find(text, at + 1))
            ++found;
    }
    HeapUnlock(heap);
    return found;
}

class LateBindingTest : public testing::Test {
protected:
    LateBindingTest() {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        // Freed texts go back to the heap, as in the program.
        SetOaNoCache();
    }
    ~LateBindingTest() override { CoUninitialize(); }

    static ComPtr<IDispatch> create(const CLSID& classId) {
        ComPtr<IDispatch> object;
        EXPECT_EQ(S_OK, CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                         object.putVoid()));
        return object;
    }

    static DISPID idOf(IDispatch* object, const wchar_t* member) {
        std::wstring name(member);
        LPOLESTR names = name.data();
        DISPID id = DISPID_UNKNOWN;
        EXPECT_EQ(S_OK, object->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id));
        return id;
    }

    // Gives the text to a property, and wipes it afterwards.
    static void put(IDispatch* object, const wchar_t* member, std::wstring_view text) {
        const Bstr given(text);
        VARIANT argument;
        V_VT(&argument) = VT_BSTR;
        V_BSTR(&argument) = given.get();
        DISPID assigned = DISPID_PROPERTYPUT;
        DISPPARAMS arguments{&argument, &assigned, 1, 1};
        EXPECT_EQ(S_OK,
                  object->Invoke(idOf(object, member), IID_NULL, LOCALE_USER_DEFAULT,
                                 DISPATCH_PROPERTYPUT, &arguments, nullptr, nullptr, nullptr));
        com::wipe(given.get());
    }

    // Asks a member that takes one text, or none when that is empty. The caller frees the answer.
    static HRESULT ask(IDispatch* object, const wchar_t* member, std::wstring_view text,
                       VARIANT* answer) {
        const Bstr given(text);
        VARIANT argument;
        V_VT(&argument) = VT_BSTR;
        V_BSTR(&argument) = given.get();
        DISPPARAMS arguments{&argument, nullptr, text.empty() ? 0U : 1U, 0};
        const HRESULT result = object->Invoke(idOf(object, member), IID_NULL, LOCALE_USER_DEFAULT,
                                              DISPATCH_METHOD | DISPATCH_PROPERTYGET, &arguments,
                                              answer, nullptr, nullptr);
        com::wipe(given.get());
        return result;
    }

    // The text of a property; what the system handed over is wiped.
    static std::wstring textOf(IDispatch* object, const wchar_t* member) {
        VARIANT answer;
        VariantInit(&answer);
        EXPECT_EQ(S_OK, ask(object, member, {}, &answer));
        EXPECT_EQ(VT_BSTR, V_VT(&answer));
        std::wstring text(com::view(V_BSTR(&answer)));
        com::wipe(V_BSTR(&answer));
        VariantClear(&answer);
        return text;
    }

    static ComPtr<IDispatch> fieldOf(IDispatch* charge, std::wstring_view name) {
        VARIANT answer;
        VariantInit(&answer);
        EXPECT_EQ(S_OK, ask(charge, L"TransactionField", name, &answer));
        EXPECT_EQ(VT_DISPATCH, V_VT(&answer));
        return ComPtr<IDispatch>(V_DISPATCH(&answer));
    }
};

TEST_F(LateBindingTest, TheSearchFindsATextThatWasFreedUnwiped) {
    constexpr std::wstring_view another = L"5105105105105100";
    SysFreeString(SysAllocString(textWith(another).c_str()));
    EXPECT_LT(0, copiesInFreedMemory(another));
}

TEST_F(LateBindingTest, CardDataThatIsGivenLeavesNoCopyInFreedMemory) {
    const auto charge = create(CLSID_Tollvane);
    for (const wchar_t* member : {L"CardNumber", L"Track1"}) {
        put(charge.get(), member, textWith(kNumber));
        EXPECT_EQ(0, copiesInFreedMemory()) << "after " << com::narrow(std::wstring_view(member));
    }
    put(fieldOf(charge.get(), L"x_card_num").get(), L"cTransactionFields_Value", textWith(kNumber));
    EXPECT_EQ(0, copiesInFreedMemory());
}

TEST_F(LateBindingTest, CardDataThatIsAskedForLeavesNoCopyInFreedMemory) {
    const auto charge = create(CLSID_Tollvane);
    for (const wchar_t* member : {L"CardNumber", L"Track1"}) {
        put(charge.get(), member, textWith(kNumber));
        std::wstring text = textOf(charge.get(), member);
        EXPECT_TRUE(text == textWith(kNumber));
        SecureZeroMemory(text.data(), text.size() * sizeof(wchar_t));
        EXPECT_EQ(0, copiesInFreedMemory()) << "after " << com::narrow(std::wstring_view(member));
    }
    std::wstring text =
        textOf(fieldOf(charge.get(), L"x_card_num").get(), L"cTransactionFields_Value");
    EXPECT_TRUE(text == textWith(kNumber));
    SecureZeroMemory(text.data(), text.size() * sizeof(wchar_t));
    EXPECT_EQ(0, copiesInFreedMemory());
}

TEST_F(LateBindingTest, ANumberThatIsJudgedLeavesNoCopyInFreedMemory) {
    const auto checker = create(CLSID_CardNumberChecker);
    VARIANT answer;
    VariantInit(&answer);
    EXPECT_EQ(S_OK, ask(checker.get(), L"CheckCardNumber", textWith(kNumber), &answer));
    EXPECT_EQ(VT_BOOL, V_VT(&answer));
    EXPECT_EQ(0, copiesInFreedMemory());
}

TEST_F(LateBindingTest, AnEmptyTextIsAnsweredAsOne) {
    const auto charge = create(CLSID_Tollvane);
    EXPECT_EQ(L"", textOf(charge.get(), L"CardNumber"));
    EXPECT_EQ(L"", textOf(charge.get(), L"Track1"));
}

} // namespace
} // namespace tollvane::charge
