// What readers send for cards as they are in people's purses, and what the form makes of it.

#include "tests/scenarios/Till.h"

namespace tollvane::test {
namespace {

/// What a burst of keys gives. An empty track means that no swipe was taken.
struct Sample {
    const char* what;
    std::string sent;
    std::string pan;
    std::string name;
    int month; ///< 1 to 12, 0: none selected
    int year;  ///< 0: none selected
    std::string track;
};

void PrintTo(const Sample& sample, std::ostream* out) {
    *out << sample.what;
}

constexpr const char* kPan = "4111111111111111";
constexpr const char* kRest = "^2712101000000000000?";

/// A card of which only the name differs.
Sample named(const char* what, const std::string& onTrack, const std::string& shown) {
    const std::string track = std::string("%B") + kPan + "^" + onTrack + kRest;
    return {what, track, kPan, shown, 12, 2027, track};
}

/// A card of which only the number differs.
Sample numbered(const char* what, const std::string& onTrack, const std::string& shown) {
    const std::string track = "%B" + onTrack + "^DOE/JANE" + kRest;
    return {what, track, shown, "JANE DOE", 12, 2027, track};
}

/// A card of which only what follows the name differs.
Sample ending(const char* what, const std::string& onTrack, int month, int year) {
    const std::string track = std::string("%B") + kPan + "^DOE/JANE^" + onTrack + "?";
    return {what, track, kPan, "JANE DOE", month, year, track};
}

/// A whole card between other keys.
Sample between(const char* what, const std::string& before, const std::string& behind) {
    const std::string track = std::string("%B") + kPan + "^DOE/JANE" + kRest;
    return {what, before + track + behind, kPan, "JANE DOE", 12, 2027, track};
}

/// Keys of which no swipe comes.
Sample broken(const char* what, const std::string& sent, const std::string& pan,
              const std::string& name) {
    return {what, sent, pan, name, 0, 0, ""};
}

const std::vector<Sample>& samples() {
    static const std::string card = std::string("%B") + kPan + "^DOE/JANE" + kRest;
    static const std::string noEnd = card.substr(0, card.size() - 1);
    static const std::string track2 = std::string(";") + kPan + "=27121010000000000?";
    static const std::vector<Sample> all{
        named("SurnameAndGivenName", "SMITH/JOHN", "JOHN SMITH"),
        named("PaddedName", "SMITH/JOHN                ", "JOHN SMITH"),
        named("MiddleInitial", "SMITH/JOHN Q", "JOHN Q SMITH"),
        named("TitleBehindADot", "SMITH/JOHN.MR", "JOHN.MR SMITH"),
        named("TitleBehindABlank", "SMITH/JOHN Q MR", "JOHN Q MR SMITH"),
        named("TitleBehindASlash", "SMITH/JOHN/DR", "JOHN/DR SMITH"),
        named("NoSlash", "JOHN SMITH", "JOHN SMITH"),
        named("OneNameOnly", "CHER", "CHER"),
        named("CompanyName", "ACME TRADING CO", "ACME TRADING CO"),
        named("GiftCard", "VALUED CUSTOMER", "VALUED CUSTOMER"),
        named("EmptyName", "", ""),
        named("BlankName", "  ", "  "),
        named("SlashOnly", "/", " "),
        named("SurnameOnly", "SMITH/", " SMITH"),
        named("GivenNameOnly", "/JOHN", "JOHN "),
        named("BlankBehindTheSlash", "SMITH/ JOHN", "JOHN SMITH"),
        named("Apostrophe", "O'NEIL/PAT", "PAT O'NEIL"),
        named("Hyphen", "SMITH-JONES/ANN", "ANN SMITH-JONES"),
        named("Suffix", "SMITH JR/JOHN", "JOHN SMITH JR"),
        named("Accents", "M\xDCLLER/JOS\xC9", "JOS\xC9 M\xDCLLER"),
        named("SmallLetters", "smith/john", "john smith"),
        named("PercentInTheName", "A%C/JOHN", "JOHN A%C"),
        named("LongestName", "ABCDEFGHIJKLM/NOPQRSTUVWXY", "NOPQRSTUVWXY ABCDEFGHIJKLM"),
        numbered("ThirteenDigits", "4222222222222", "4222222222222"),
        numbered("FourteenDigits", "30569309025904", "30569309025904"),
        numbered("FifteenDigits", "378282246310005", "378282246310005"),
        numbered("NineteenDigits", "6799990100000000019", "6799990100000000019"),
        numbered("GroupedDigits", "3782 822463 10005", "3782 822463 10005"),
        numbered("BlanksAroundTheNumber", " 4111111111111111 ", kPan),
        numbered("NoNumber", "", ""),
        numbered("FailingTheCheckDigit", "4111111111111112", "4111111111111112"),
        ending("ServiceCodeOnly", "2712201", 12, 2027),
        ending("ExpiryOnly", "2712", 12, 2027),
        ending("DiscretionaryData", "28021011234500678000000", 2, 2028),
        ending("LastYearOfTheList", "3601101", 1, 2036),
        ending("YearBehindTheList", "3701101", 1, 0),
        ending("ExpiredLastYear", "2512101", 12, 0),
        ending("MonthZero", "2700101", 0, 2027),
        ending("MonthThirteen", "2713101", 0, 2027),
        ending("NoExpiry", "^101000", 0, 0),
        ending("NothingBehindTheName", "", 0, 0),
        ending("SeparatorInTheRest", "2712101^000", 12, 2027),
        between("WithLrc", "", "L"),
        between("WithEnter", "", "\r"),
        between("WithTrackTwo", "", track2),
        between("WithLrcTrackTwoAndEnter", "", "7" + track2 + "K\r"),
        between("BehindAnInterruptedSwipe", noEnd.substr(0, 9), ""),
        between("BehindASwipeThatBrokeOffInTheName", noEnd.substr(0, 24), ""),
        between("BehindASwipeThatBrokeOffAtTheEnd", noEnd, ""),
        between("BehindItsHeader", "%B", ""),
        between("BehindAStartSentinel", "%", ""),
        between("BehindTrackTwo", track2, ""),
        between("BehindHalfATrackTwo", track2.substr(0, 9), ""),
        between("Repeated", card, card + card),
        {"MissingEndSentinelBeforeTrackTwo", noEnd + track2, kPan, "JANE DOE", 12, 2027,
         noEnd + track2},
        broken("MissingEndSentinel", noEnd, kPan, "JANE DOE"),
        broken("MissingEndSentinelAndEnter", noEnd + "\r", kPan, "JANE DOE"),
        broken("InterruptedInTheNumber", noEnd.substr(0, 12), "", ""),
        broken("InterruptedInTheName", noEnd.substr(0, 22), kPan, ""),
        broken("OneSeparator", std::string("%B") + kPan + "^DOE/JANE?", kPan, ""),
        broken("NoSeparator", std::string("%B") + kPan + "?", "", ""),
        broken("TrackTwoOnly", track2, "", ""),
        broken("NoTrackReadable", ";E?+E?\r", "", ""),
    };
    return all;
}

class FieldsTracks : public OpenTillTest, public ::testing::WithParamInterface<Sample> {
protected:
    /// Until nothing is left that time alone could change.
    void letTheReaderRest() {
        for (const char* name : {"tmrSwipe", "tmrKbBuffer"}) {
            const Timer& timer = till.form().control<Timer>(name);
            if (timer.enabled()) {
                till.desktop.robot->letTimePass(timer.interval() + 300);
            }
        }
    }
};

TEST_P(FieldsTracks, GivesTheCardAndNothingElse) {
    const Sample& sample = GetParam();
    till.box("txtDescription").setFocus();

    till.desktop.robot->typeText(sample.sent);
    letTheReaderRest();

    EXPECT_EQ(till.text("txtCardNumber"), sample.pan);
    EXPECT_EQ(till.text("txtCardName"), sample.name);
    EXPECT_EQ(till.list("cboExpMonth").listIndex(), sample.month - 1);
    EXPECT_EQ(till.list("cboExpYear").text(), sample.year == 0 ? "" : std::to_string(sample.year));
    EXPECT_EQ(till.text("txtMagStripe"), sample.track);
    EXPECT_EQ(till.text("txtDescription"), "");
    EXPECT_EQ(till.text("txtAmount"), sample.track.empty() ? "$0.00" : "0.00");
    EXPECT_EQ(till.text("txtKbBuffer"), "");
    EXPECT_EQ(till.boxes(), std::vector<Message>());
    EXPECT_TRUE(till.operations().empty());
}

TEST_P(FieldsTracks, IsFollowedByACleanSwipe) {
    till.box("txtEMail").setFocus();
    till.desktop.robot->typeText(GetParam().sent);

    till.desktop.robot->typeText("%B5555555555554444^LAST/ONE^2803101?");

    EXPECT_EQ(till.text("txtCardNumber"), "5555555555554444");
    EXPECT_EQ(till.text("txtCardName"), "ONE LAST");
    EXPECT_EQ(till.text("txtMagStripe"), "%B5555555555554444^LAST/ONE^2803101?");
    EXPECT_EQ(till.list("cboExpYear").text(), "2028");
    EXPECT_EQ(till.focus(), "txtAmount");
}

INSTANTIATE_TEST_SUITE_P(Of, FieldsTracks, ::testing::ValuesIn(samples()),
                         [](const auto& row) { return std::string(row.param.what); });

class FieldsTracksInTime : public OpenTillTest {};

TEST_F(FieldsTracksInTime, ASwipeThatBeginsWhenTheBufferIsTidiedKeepsItsExpiry) {
    Timer& timer = till.form().control<Timer>("tmrKbBuffer");
    till.box("txtDescription").setFocus();
    till.desktop.robot->typeText(std::string(";") + kPan + "=27121010000000000?\r");
    ASSERT_TRUE(timer.enabled()) << "what the card before left is tidied away later";

    till.desktop.robot->typeText("%");
    timer.on.timer();
    till.desktop.robot->typeText(std::string("B") + kPan + "^DOE/JANE" + kRest);

    EXPECT_EQ(till.text("txtCardNumber"), kPan);
    EXPECT_EQ(till.list("cboExpMonth").listIndex(), 11);
    EXPECT_EQ(till.list("cboExpYear").text(), "2027");
}

TEST(FieldsTrackTable, HasFortySamplesOrMore) {
    EXPECT_GE(samples().size(), 40U);
}

} // namespace
} // namespace tollvane::test
