// What a component may answer with: every type of the system's variants, plain and by reference.

#include "platform/Error.h"
#include "platform/win32/ComHandles.h"
#include "platform/win32/SystemText.h"
#include "platform/win32/VariantConversion.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <set>
#include <vector>

// The system's interfaces have no virtual destructor; these objects live on the stack.
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace tollvane::test {
namespace {

constexpr long kMismatch = 13;

/// An object that counts its references; with or without late binding.
class Counted final : public IDispatch {
public:
    explicit Counted(bool lateBound) : lateBound_(lateBound) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) override {
        const bool known = id == IID_IUnknown || (id == IID_IDispatch && lateBound_);
        *out = known ? static_cast<IDispatch*>(this) : nullptr;
        references += known ? 1 : 0;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++references; }
    ULONG STDMETHODCALLTYPE Release() override { return --references; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override {
        return E_NOTIMPL;
    }

    ULONG references = 1;

private:
    bool lateBound_;
};

/// The number of the error that the conversion raises; 0 for none.
long raisedBy(const VARIANT& answer) {
    try {
        win32::fromSystem(answer);
        return 0;
    } catch (const Error& error) {
        return error.number();
    }
}

struct Row {
    const char* what;
    VARIANT answer;
    Variant expected; ///< unless it raises
    bool raises = false;
};

template <class Fill>
VARIANT variant(VARTYPE type, Fill&& fill) {
    VARIANT made{};
    V_VT(&made) = type;
    fill(made);
    return made;
}

VARIANT empty(VARTYPE type) {
    return variant(type, [](VARIANT&) {});
}

DECIMAL decimal(ULONG low, BYTE scale, bool negative) {
    DECIMAL value{};
    value.Lo32 = low;
    value.scale = scale;
    value.sign = negative ? DECIMAL_NEG : 0;
    return value;
}

VARIANT decimalVariant(const DECIMAL& value) {
    return variant(0, [&](VARIANT& v) {
        V_DECIMAL(&v) = value; // which lies over the type
        V_VT(&v) = VT_DECIMAL;
    });
}

constexpr double kHuge = 9007199254740993.0 * 16;

std::vector<Row> numbers() {
    const auto whole = [](std::int32_t n) { return Variant(n); };
    return {
        {"I1", variant(VT_I1, [](VARIANT& v) { V_I1(&v) = -5; }), whole(-5)},
        {"UI1", variant(VT_UI1, [](VARIANT& v) { V_UI1(&v) = 200; }), whole(200)},
        {"I2", variant(VT_I2, [](VARIANT& v) { V_I2(&v) = -30000; }), whole(-30000)},
        {"UI2", variant(VT_UI2, [](VARIANT& v) { V_UI2(&v) = 65535; }), whole(65535)},
        {"I4", variant(VT_I4, [](VARIANT& v) { V_I4(&v) = -2000000000; }), whole(-2000000000)},
        {"UI4", variant(VT_UI4, [](VARIANT& v) { V_UI4(&v) = 7; }), whole(7)},
        {"large UI4", variant(VT_UI4, [](VARIANT& v) { V_UI4(&v) = 4294967295U; }), 4294967295.0},
        {"INT", variant(VT_INT, [](VARIANT& v) { V_INT(&v) = -1; }), whole(-1)},
        {"UINT", variant(VT_UINT, [](VARIANT& v) { V_UINT(&v) = 3; }), whole(3)},
        {"I8", variant(VT_I8, [](VARIANT& v) { V_I8(&v) = -9; }), whole(-9)},
        {"large I8", variant(VT_I8, [](VARIANT& v) { V_I8(&v) = 1LL << 60; }), std::pow(2.0, 60)},
        {"large UI8", variant(VT_UI8, [](VARIANT& v) { V_UI8(&v) = 1ULL << 63; }),
         std::pow(2.0, 63)},
        {"R4", variant(VT_R4, [](VARIANT& v) { V_R4(&v) = 0.5F; }), 0.5},
        {"R8", variant(VT_R8, [](VARIANT& v) { V_R8(&v) = kHuge; }), kHuge},
        {"whole R8", variant(VT_R8, [](VARIANT& v) { V_R8(&v) = 2; }), 2.0},
        {"endless R8",
         variant(VT_R8, [](VARIANT& v) { V_R8(&v) = std::numeric_limits<double>::infinity(); }),
         std::numeric_limits<double>::infinity()},
        {"DECIMAL", decimalVariant(decimal(125, 1, true)), -12.5},
        {"CY", variant(VT_CY, [](VARIANT& v) { V_CY(&v).int64 = -1234567; }),
         Money::fromScaled(-1234567)},
        {"true", variant(VT_BOOL, [](VARIANT& v) { V_BOOL(&v) = VARIANT_TRUE; }), true},
        {"odd true", variant(VT_BOOL, [](VARIANT& v) { V_BOOL(&v) = 1; }), true},
        {"false", empty(VT_BOOL), false},
        {"DATE", variant(VT_DATE, [](VARIANT& v) { V_DATE(&v) = 46447.5; }),
         DateTime{2027, 3, 1, 12, 0, 0}},
        {"no DATE", variant(VT_DATE, [](VARIANT& v) { V_DATE(&v) = 1e300; }), {}, true},
    };
}

std::vector<Row> others() {
    return {
        {"EMPTY", empty(VT_EMPTY), {}},
        {"NULL", empty(VT_NULL), {}},
        {"ERROR", variant(VT_ERROR, [](VARIANT& v) { V_ERROR(&v) = DISP_E_PARAMNOTFOUND; }), {}},
        {"BSTR without a text", empty(VT_BSTR), std::string()},
        {"DISPATCH of nothing", empty(VT_DISPATCH), ObjectRef()},
        {"UNKNOWN of nothing", empty(VT_UNKNOWN), ObjectRef()},
        {"ARRAY of nothing", empty(VT_ARRAY | VT_I4), {}, true},
        {"RECORD", empty(VT_RECORD), {}, true},
        {"VARIANT that is no reference", empty(VT_VARIANT), {}, true},
    };
}

std::vector<Row> rows() {
    std::vector<Row> all = numbers();
    const std::vector<Row> more = others();
    all.insert(all.end(), more.begin(), more.end());
    return all;
}

void expectAs(const Row& row, const VARIANT& answer, const char* how) {
    SCOPED_TRACE(std::string(row.what) + how);
    if (row.raises) {
        EXPECT_EQ(raisedBy(answer), kMismatch);
    } else {
        EXPECT_EQ(win32::fromSystem(answer), row.expected);
    }
}

/// What a reference to the value points at.
void* place(VARIANT& value) {
    return V_VT(&value) == VT_DECIMAL ? static_cast<void*>(&V_DECIMAL(&value))
                                      : static_cast<void*>(&V_NONE(&value));
}

VARIANT reference(VARTYPE type, void* to) {
    return variant(static_cast<VARTYPE>(type | VT_BYREF), [to](VARIANT& v) { V_BYREF(&v) = to; });
}

class VariantConversion : public testing::Test {
    win32::ComApartment com_;
};

TEST_F(VariantConversion, EveryTypeIsAValueOrAMismatch) {
    for (const Row& row : rows()) {
        expectAs(row, row.answer, "");
    }
}

TEST_F(VariantConversion, EveryTypeByReferenceIsTheSame) {
    for (Row& row : rows()) {
        VARIANT wrapped = reference(VT_VARIANT, &row.answer);
        expectAs(row, wrapped, ", a variant by reference");
        const bool hasValue = V_VT(&row.answer) > VT_NULL && V_VT(&row.answer) != VT_VARIANT &&
                              V_VT(&row.answer) != VT_RECORD;
        if (hasValue) {
            VARIANT direct = reference(V_VT(&row.answer), place(row.answer));
            expectAs(row, direct, ", by reference");
            wrapped = reference(VT_VARIANT, &direct);
            expectAs(row, wrapped, ", by reference in a variant by reference");
        }
    }
}

TEST_F(VariantConversion, AReferenceToNothingOrToAReferenceOfItsKindIsAMismatch) {
    for (int type = 0; type <= VT_TYPEMASK; ++type) {
        VARIANT nowhere = reference(static_cast<VARTYPE>(type), nullptr);
        EXPECT_EQ(raisedBy(nowhere), kMismatch) << type;
        EXPECT_EQ(raisedBy(reference(VT_VARIANT, &nowhere)), kMismatch) << type;
    }
    VARIANT circle{};
    circle = reference(VT_VARIANT, &circle);
    EXPECT_EQ(raisedBy(circle), kMismatch);
}

TEST_F(VariantConversion, EveryOtherTypeNumberIsAMismatch) {
    std::set<VARTYPE> known{VT_VOID}; // has no value
    for (const Row& row : rows()) {
        known.insert(V_VT(&row.answer));
    }
    int tried = 0;
    for (int type = 0; type < VT_BYREF; ++type) {
        if (known.count(static_cast<VARTYPE>(type)) == 0) {
            EXPECT_EQ(raisedBy(empty(static_cast<VARTYPE>(type))), kMismatch) << type;
            ++tried;
        }
    }
    EXPECT_GT(tried, 10'000);
}

TEST_F(VariantConversion, TextsAreTakenWholeAndArraysRefused) {
    win32::Bstr text("caf\xE9");
    VARIANT plain = variant(VT_BSTR, [&](VARIANT& v) { V_BSTR(&v) = text.get(); });
    EXPECT_EQ(win32::fromSystem(plain), Variant(std::string("caf\xE9")));
    EXPECT_EQ(win32::fromSystem(reference(VT_BSTR, text.receive())),
              Variant(std::string("caf\xE9")));
    SAFEARRAY* array = SafeArrayCreateVector(VT_UI1, 0, 100);
    EXPECT_EQ(raisedBy(variant(VT_ARRAY | VT_UI1, [&](VARIANT& v) { V_ARRAY(&v) = array; })),
              kMismatch);
    EXPECT_EQ(raisedBy(reference(VT_ARRAY | VT_UI1, &array)), kMismatch);
    SafeArrayDestroy(array);
}

TEST_F(VariantConversion, ObjectsAreHeldAsLongAsTheirValue) {
    Counted object(true);
    IDispatch* dispatch = &object;
    IUnknown* unknown = &object;
    for (const VARIANT& answer :
         {variant(VT_DISPATCH, [&](VARIANT& v) { V_DISPATCH(&v) = dispatch; }),
          variant(VT_UNKNOWN, [&](VARIANT& v) { V_UNKNOWN(&v) = unknown; }),
          reference(VT_DISPATCH, &dispatch), reference(VT_UNKNOWN, &unknown)}) {
        {
            const Variant held = win32::fromSystem(answer);
            EXPECT_TRUE(std::get<ObjectRef>(held));
            EXPECT_EQ(object.references, 2U);
        }
        EXPECT_EQ(object.references, 1U);
    }
}

TEST_F(VariantConversion, AnObjectWithoutLateBindingIsRefusedAndLetGo) {
    Counted object(false);
    IUnknown* unknown = &object;
    EXPECT_EQ(raisedBy(variant(VT_UNKNOWN, [&](VARIANT& v) { V_UNKNOWN(&v) = unknown; })),
              kMismatch);
    EXPECT_EQ(raisedBy(reference(VT_UNKNOWN, &unknown)), kMismatch);
    EXPECT_EQ(object.references, 1U);
}

/// Pieces that the process has got from its heaps.
std::size_t piecesInUse() {
    HANDLE heaps[64];
    const DWORD count = GetProcessHeaps(64, heaps);
    std::size_t pieces = 0;
    for (DWORD i = 0; i < count; ++i) {
        PROCESS_HEAP_ENTRY entry{};
        while (HeapWalk(heaps[i], &entry)) {
            pieces += entry.wFlags & PROCESS_HEAP_ENTRY_BUSY ? 1 : 0;
        }
    }
    return pieces;
}

TEST_F(VariantConversion, NothingOfAnAnswerIsKept) {
    constexpr std::size_t kRounds = 200;
    win32::Bstr text("a text of some length, which is copied on its way");
    SAFEARRAY* array = SafeArrayCreateVector(VT_UI1, 0, 100);
    const auto round = [&] {
        for (Row& row : rows()) {
            raisedBy(row.answer);
            raisedBy(reference(VT_VARIANT, &row.answer));
        }
        raisedBy(reference(VT_BSTR, text.receive()));
        raisedBy(reference(VT_ARRAY | VT_UI1, &array));
    };
    round();
    const std::size_t before = piecesInUse();
    for (std::size_t i = 0; i < kRounds; ++i) {
        round();
    }
    EXPECT_LT(piecesInUse(), before + kRounds / 2);
    SafeArrayDestroy(array);
}

} // namespace
} // namespace tollvane::test
