// The help menu and the Help button of a refused transaction.

#include "tests/scenarios/Till.h"

#include <gmock/gmock.h>

namespace tollvane::test {
namespace {

constexpr const char* kFolder = "C:\\Program Files\\Tollvane\\";

class HelpMenu : public OpenTillTest {
protected:
    void choose(std::string_view name) { till.desktop.robot->chooseMenu(till.form(), name); }
    FakeShell& shell() { return till.desktop.shell; }
    FakeShell::Execution opened(const std::string& file, const std::string& parameters = {}) {
        return {till.form().handle(), "Open", file, parameters, kFolder, kShowNormal};
    }
    static Message startError(const std::string& text) {
        return information("Application Start Error", text);
    }
};

using HelpContents = HelpMenu;

TEST_F(HelpContents, AreAskedOfTheHelpEngineFirst) {
    shell().helpFiles.insert("C:\\Program Files\\Tollvane\\ENTRYUI.hlp");

    choose("mnu_HContents");

    EXPECT_EQ(shell().helpCalls,
              (std::vector<FakeShell::HelpCall>{
                  {till.form().handle(), "C:\\Program Files\\Tollvane\\ENTRYUI.hlp", -1}}));
    EXPECT_TRUE(shell().executions.empty());
    EXPECT_EQ(till.boxes(), std::vector<Message>());
}

TEST_F(HelpContents, FallBackToThePageOfTheSameName) {
    choose("mnu_HContents");

    EXPECT_EQ(shell().helpCalls.size(), 1U);
    EXPECT_EQ(shell().executions, std::vector{opened("C:\\Program Files\\Tollvane\\ENTRYUI.htm")});
    EXPECT_EQ(till.boxes(), std::vector<Message>());
}

TEST_F(HelpContents, ThatNeitherCanShowAreReported) {
    shell().result = 2;

    choose("mnu_HContents");

    EXPECT_EQ(till.boxes(), std::vector{startError("Error launching Help.\n\nError = 2. File was "
                                                   "not found.")});
}

TEST_F(HelpContents, AreOpenWhenTheShellAnswersMoreThan32) {
    shell().result = 32;
    choose("mnu_HContents");
    EXPECT_EQ(till.boxes().size(), 1U);

    shell().result = 33;
    choose("mnu_HContents");
    EXPECT_EQ(till.boxes(), std::vector<Message>());
}

class HelpButton : public HelpMenu {
protected:
    void SetUp() override {
        HelpMenu::SetUp();
        till.desktop.boxes.whileOpen = [this](const Message& box) {
            if (box.help) {
                ++helpButtons;
                box.help(box);
            }
        };
        till.fillCharge();
    }
    void refuse(std::int32_t response, std::int32_t reason) {
        till.desktop.charge.answer(declined(response, reason, "No."));
        till.submit();
    }
    int helpButtons = 0;
};

TEST_F(HelpButton, OfARefusalAsksTheHelpEngineForItsTopic) {
    shell().helpFiles.insert("C:\\Program Files\\Tollvane\\zendacard.hlp");

    refuse(2, 27);

    EXPECT_EQ(helpButtons, 1);
    EXPECT_EQ(shell().helpCalls,
              (std::vector<FakeShell::HelpCall>{
                  {till.form().handle(), "C:\\Program Files\\Tollvane\\zendacard.hlp", 227}}));
    EXPECT_TRUE(shell().executions.empty());
    EXPECT_EQ(till.boxes().size(), 1U) << "the refusal only";
}

TEST_F(HelpButton, FallsBackToThePageAtTheTopic) {
    refuse(3, 11);

    EXPECT_EQ(shell().executions,
              std::vector{opened("C:\\Browser\\browser.exe",
                                 "\"file:///C:/Program%20Files/Tollvane/zendacard.htm#311\"")});
    EXPECT_EQ(till.boxes().size(), 1U) << "the refusal only";
}

TEST_F(HelpButton, WithoutAProgramForPagesLeavesThePageToTheShell) {
    shell().browser.clear();

    refuse(2, 27);

    EXPECT_EQ(shell().executions,
              std::vector{opened("C:\\Program Files\\Tollvane\\zendacard.htm")});
}

TEST_F(HelpButton, ThatOpensNothingSaysSoWhileTheRefusalStaysOpen) {
    shell().browser.clear();
    shell().result = 31;

    refuse(2, 27);

    const std::vector<Message> boxes = till.boxes();
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(boxes[0].title, "Authorization Failed");
    EXPECT_EQ(boxes[1], startError("Error launching Help.\n\nError = 31. There is no association "
                                   "for the specified file type or if there is no association for "
                                   "the specified action within the file type."));
    till.expectUsable();
}

TEST_F(HelpButton, HasOpenedThePageWhenTheShellAnswersMoreThan32) {
    shell().result = 32;
    refuse(2, 27);
    EXPECT_EQ(till.boxes().size(), 2U);

    shell().result = 33;
    refuse(2, 27);
    EXPECT_EQ(till.boxes().size(), 1U) << "the refusal only";
}

TEST_F(HelpButton, TakesAProgramForPagesThatIsFoundWithMoreThan32) {
    shell().result = 33;
    till.desktop.faults.failAt(Port::shell, 2, 32);

    refuse(2, 27);

    EXPECT_EQ(till.desktop.faults.failedCall(), "findProgram");
    EXPECT_EQ(shell().executions,
              std::vector{opened("C:\\Program Files\\Tollvane\\zendacard.htm")});
}

TEST_F(HelpButton, OnANetworkFolderNamesTheServerInTheAddress) {
    till.desktop.files.folder = "\\\\server\\till#1 (new)\\\xDC"
                                "ber";

    refuse(2, 27);

    ASSERT_EQ(shell().executions.size(), 1U);
    EXPECT_EQ(shell().executions[0].parameters, "\"file://server/till%231%20%28new%29/\xDC"
                                                "ber/zendacard.htm#227\"");
}

TEST_F(HelpButton, LeavesTheLettersBeyondTheSevenBitsOfAFolderAsTheyAre) {
    till.desktop.files.folder = "C:\\Preis in \x80\\\xFF";

    refuse(2, 27);

    ASSERT_EQ(shell().executions.size(), 1U);
    EXPECT_EQ(shell().executions[0].parameters,
              "\"file:///C:/Preis%20in%20\x80/\xFF/zendacard.htm#227\"");
}

TEST_F(HelpButton, IsMissingFromOtherBoxes) {
    till.submit();
    ASSERT_EQ(till.boxes().size(), 1U);
    EXPECT_EQ(helpButtons, 0);
}

using DataPathBox = HelpMenu;

TEST_F(DataPathBox, ShowsPathAndLocation) {
    till.desktop.charge.dataPath = "D:\\Shop\\Data";
    till.desktop.hostData.location = "High Street";

    choose("mnu_HData");

    EXPECT_EQ(till.boxes(),
              std::vector{information("Zenda Data Path & Location",
                                      "\tData path:\tD:\\Shop\\Data\r\n\tLocation:\tHigh Street")});
}

TEST_F(DataPathBox, CapitalisesThePathLikeTheStatusBar) {
    till.desktop.charge.dataPath = "d:\\shop\\DATA";

    choose("mnu_HData");

    EXPECT_THAT(till.desktop.boxes.last().text,
                ::testing::StartsWith("\tData path:\tD:\\Shop\\Data\r\n"));
}

TEST_F(DataPathBox, ShortensAPathThatDoesNotFit) {
    till.desktop.screen.width = 28'800;
    till.desktop.charge.dataPath =
        "C:\\Users\\Public\\Documents\\Norrow Programs\\Shops of the North\\Zenda\\Data";

    choose("mnu_HData");

    const std::string text = till.desktop.boxes.last().text;
    const std::string path = text.substr(12, text.find("\r\n") - 12);
    EXPECT_EQ(path.size(), 30U) << text;
    EXPECT_NE(path.find("..."), std::string::npos) << text;
    EXPECT_TRUE(path.ends_with("\\Zenda\\Data")) << text;
}

TEST_F(DataPathBox, ShowsMoreOfAPathOnAWideScreenAndSomeOnTheSmallest) {
    till.desktop.charge.dataPath = std::string(90, 'd');
    for (const auto& [width, room] : {std::pair{48'000, 50U}, std::pair{19'200, 20U},
                                      std::pair{15'359, 16U}, std::pair{100, 16U}}) {
        till.desktop.screen.width = width;
        choose("mnu_HData");
        const std::string text = till.desktop.boxes.last().text;
        EXPECT_EQ(text.find("\r\n") - 12, room) << text;
    }
}

TEST_F(DataPathBox, WithoutAnAnswerIsReported) {
    till.desktop.record.failNext("hostdata.Location", Error(462, "hostdata", "Gone"));

    choose("mnu_HData");

    EXPECT_EQ(till.boxes(),
              std::vector{information(
                  "", "There was an error showing the data path.\r\n\r\nError: 462, Gone")});
}

class About : public HelpMenu {
protected:
    /// An About component of the maker; `failure`, when it is set, is what showing it raises.
    void install(std::optional<Error> failure = std::nullopt) {
        auto object = std::make_shared<FakeObject>("about", till.desktop.record);
        object->method("ShowAbout", [this, failure](std::vector<Argument>& arguments) -> Variant {
            shown.push_back(arguments);
            if (failure) {
                throw Error(*failure);
            }
            return {};
        });
        till.desktop.automation.registerProgId("Norrow_About.clsAbout",
                                               [object] { return object; });
    }
    std::vector<std::vector<Argument>> shown;
};

TEST_F(About, IsShownByTheComponentInFrontOfTheForm) {
    install();

    choose("mnu_About");

    ASSERT_EQ(shown.size(), 1U);
    ASSERT_EQ(shown[0].size(), 2U);
    EXPECT_EQ(shown[0][0].value, Variant(true));
    EXPECT_EQ(shown[0][1].value, Variant(till.form().handle()));
    EXPECT_EQ(till.boxes(), std::vector<Message>());
}

TEST_F(About, WithoutTheComponentSaysThatItsClassCannotBeCreated) {
    choose("mnu_About");

    EXPECT_EQ(till.boxes(),
              std::vector{information("Unable to Display About",
                                      "There was an error displaying Tollvane information.\r\n\r\n"
                                      "Error 429, Unable to create About class.")});
}

TEST_F(About, ThatFailsOtherwiseTellsTheError) {
    install(Error(70, "about", "Permission denied"));

    choose("mnu_About");

    EXPECT_EQ(till.boxes(),
              std::vector{information("Unable to Display About",
                                      "There was an error displaying Tollvane information.\r\n\r\n"
                                      "Error: 70, Permission denied.")});
}

TEST_F(About, OfAnotherMakeIsReportedByItsMissingMember) {
    till.desktop.automation.registerProgId("Norrow_About.clsAbout", [this] {
        return std::make_shared<FakeObject>("about", till.desktop.record);
    });

    choose("mnu_About");

    EXPECT_TRUE(till.desktop.boxes.last().text.starts_with(
        "There was an error displaying Tollvane information.\r\n\r\nError: 438, "))
        << till.desktop.boxes.last();
}

} // namespace
} // namespace tollvane::test
