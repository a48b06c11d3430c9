// The texts that are made of the company's settings: its address block and the default invoice
// number.

#include "tests/scenarios/Till.h"

namespace tollvane::test {
namespace {

struct Company {
    const char* what;
    const char* name;
    const char* street;
    const char* additional;
    const char* city;
    const char* state;
    const char* zip;
    const char* phone;
    const char* block;
};

void PrintTo(const Company& row, std::ostream* out) {
    *out << row.what;
}

class CompanyAddressBlock : public OpenTillTest, public ::testing::WithParamInterface<Company> {};

TEST_P(CompanyAddressBlock, HasALineForWhatIsThere) {
    till.setCompany("Name", GetParam().name);
    till.setCompany("Street", GetParam().street);
    till.setCompany("Additional Address", GetParam().additional);
    till.setCompany("City", GetParam().city);
    till.setCompany("State", GetParam().state);
    till.setCompany("Zip", GetParam().zip);
    till.setCompany("Phone", GetParam().phone);

    EXPECT_EQ(till.program().CompanyAddressBlock(), GetParam().block);
}

INSTANTIATE_TEST_SUITE_P(
    Of, CompanyAddressBlock,
    ::testing::Values(
        Company{"Nothing", "", "", "", "", "", "", "", "\r\n"},
        Company{"Everything", "Oak & Elm", "1 Oak Street", "Suite 2", "Springfield", "IL", "62701",
                "555-0100",
                "Oak & Elm\r\n1 Oak Street\r\nSuite 2\r\nSpringfield, IL 62701\r\n555-0100"},
        Company{"NameOnly", "Oak & Elm", "", "", "", "", "", "", "Oak & Elm\r\n\r\n"},
        Company{"StreetOnly", "", "1 Oak Street", "", "", "", "", "", "1 Oak Street\r\n\r\n"},
        Company{"AdditionalOnly", "", "", "Suite 2", "", "", "", "", "Suite 2\r\n\r\n"},
        Company{"PhoneOnly", "", "", "", "", "", "", "555-0100", "\r\n555-0100"},
        Company{"CityOnly", "", "", "", "Springfield", "", "", "", "Springfield\r\n"},
        Company{"CityAndState", "", "", "", "Springfield", "IL", "", "", "Springfield, IL\r\n"},
        Company{"CityAndZip", "", "", "", "Springfield", "", "62701", "", "Springfield62701\r\n"},
        Company{"StateOnly", "", "", "", "", "IL", "", "", "IL\r\n"},
        Company{"StateAndZip", "", "", "", "", "IL", "62701", "", "IL 62701\r\n"},
        Company{"ZipOnly", "", "", "", "", "", "62701", "", "62701\r\n"}),
    [](const auto& row) { return std::string(row.param.what); });

struct Moment {
    const char* what;
    DateTime now;
    std::uint32_t location;
    const char* number;
};

void PrintTo(const Moment& row, std::ostream* out) {
    *out << row.what;
}

class DefaultInvoiceNumber : public OpenTillTest, public ::testing::WithParamInterface<Moment> {};

TEST_P(DefaultInvoiceNumber, IsMadeOfTheMomentAndTheLocation) {
    till.desktop.clock.set(GetParam().now);
    till.setCompanyLocation(GetParam().location);

    EXPECT_EQ(till.program().DefaultInvoiceNumber(), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(
    At, DefaultInvoiceNumber,
    ::testing::Values(
        Moment{"NineInTheMorning", {2004, 3, 7, 9, 5, 3}, 5, "040307953005"},
        Moment{"Midnight", {2026, 1, 1, 0, 0, 0}, 0, "260101000000"},
        Moment{"Evening", {2026, 12, 31, 23, 59, 58}, 42, "261231235958042"},
        Moment{"NegativeLocation", {2004, 3, 7, 9, 5, 3}, 0xFFFFFFFB, "040307953-005"},
        Moment{"SmallestLocation", {2004, 3, 7, 9, 5, 3}, 0x80000000, "040307953-2147483648"},
        Moment{"LargeLocation",
               {2030, 10, 20, 1, 20, 3},
               12345,
               "3010201203"
               "12345"}),
    [](const auto& row) { return std::string(row.param.what); });

} // namespace
} // namespace tollvane::test
