// The call history: a file that only ever grows and is read-only in between.

#include "tests/scenarios/Till.h"

namespace tollvane::test {
namespace {

constexpr const char* kFile = "C:\\Program Files\\Tollvane\\CALLHIST.TXT";

class CallHistory : public OpenTillTest {
protected:
    void append(const std::string& line) { till.program().AppendCallHistory(line); }
    std::string contents() { return till.desktop.files.contents(kFile); }
    std::uint32_t attributes() { return till.desktop.files.attributes(kFile); }
    Error failure(const std::string& line) {
        try {
            append(line);
        } catch (const Error& error) {
            return error;
        }
        ADD_FAILURE() << "nothing was raised";
        return {0, "", ""};
    }
};

TEST_F(CallHistory, IsCreatedByTheFirstLineAndThenReadOnly) {
    append("first call");

    EXPECT_EQ(contents(), "first call\r\n");
    EXPECT_EQ(attributes(), fileattribute::readOnly);
}

TEST_F(CallHistory, TakesASecondLineAlthoughItIsReadOnly) {
    append("first call");
    append("second call");

    EXPECT_EQ(contents(), "first call\r\nsecond call\r\n");
    EXPECT_EQ(attributes(), fileattribute::readOnly);
}

TEST_F(CallHistory, TakesAnEmptyTextAsAnEmptyLine) {
    append("");

    EXPECT_EQ(contents(), "\r\n");
}

TEST_F(CallHistory, InARootFolderHasOneBackslash) {
    till.desktop.files.folder = "C:\\";
    append("call");

    EXPECT_EQ(till.desktop.files.contents("C:\\CALLHIST.TXT"), "call\r\n");
}

TEST_F(CallHistory, OfAFolderWithoutWriteAccessRaisesTheSystemsError) {
    till.desktop.faults.failAt(Port::files, 1, 5); // the appending: there is no file to mark yet

    const Error error = failure("call");

    EXPECT_EQ(error.number(), 5);
    EXPECT_EQ(error.source(), "Tollvane:AppendCallHistory");
    EXPECT_FALSE(error.description().empty());
    EXPECT_EQ(contents(), "");
}

TEST_F(CallHistory, ThatIsLockedRaisesTheErrorAndStaysReadOnly) {
    append("first call");
    till.desktop.faults.failAt(Port::files, 2, 32); // after the attributes were cleared

    EXPECT_EQ(failure("second call").number(), 32);
    EXPECT_EQ(attributes(), fileattribute::readOnly);

    append("third call");
    EXPECT_EQ(contents(), "first call\r\nthird call\r\n");
}

TEST_F(CallHistory, WhoseAttributesCannotBeClearedRaisesTheError) {
    append("first call");
    till.desktop.faults.failAt(Port::files, 1, 5);

    EXPECT_EQ(failure("second call").number(), 5);
    EXPECT_EQ(contents(), "first call\r\n");
}

TEST_F(CallHistory, ThatCannotBeMarkedAgainRaisesTheErrorWithTheLineWritten) {
    append("first call");
    till.desktop.faults.failAt(Port::files, 3, 5); // after clearing and appending

    EXPECT_EQ(failure("second call").number(), 5);
    EXPECT_EQ(contents(), "first call\r\nsecond call\r\n");
}

TEST_F(CallHistory, IsWrittenByNoTransaction) {
    till.approveCharge();
    till.press("cmdCancel");

    EXPECT_EQ(till.desktop.files.findFile(kFile), "");
}

} // namespace
} // namespace tollvane::test
