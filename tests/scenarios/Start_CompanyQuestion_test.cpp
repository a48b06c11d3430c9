// The question about the company information, which a start asks only while no name is stored.

#include "tests/scenarios/Till.h"

namespace tollvane::test {
namespace {

class CompanyQuestion : public TillTest {};

TEST_F(CompanyQuestion, IsAskedWhenTheStoredNameIsEmpty) {
    till.setCompany("Name", "");
    till.desktop.boxes.answer(MessageAnswer::no);

    till.start();

    EXPECT_EQ(till.boxes(),
              (std::vector<Message>{question("Enter Company Information Now?",
                                             "Your company information has not been entered."
                                             "\r\n\r\n"
                                             "This information is used when printing receipts."
                                             "\r\n"
                                             "Do you want to setup this program now?")}));
}

TEST_F(CompanyQuestion, AnsweredNoStillShowsTheFormWithAnEmptyCompanyName) {
    till.setCompany("Name", "");
    till.desktop.boxes.answer(MessageAnswer::no);

    till.start();

    ASSERT_TRUE(till.isOpen());
    EXPECT_EQ(till.form().control<Label>("lblCompanyInfo").caption(), "\r\n");
}

TEST_F(CompanyQuestion, IsAskedBeforeTheFormIsShownAndAfterTheComponentsWereMade) {
    till.setCompany("Name", "");
    till.desktop.boxes.answer(MessageAnswer::no);
    bool shown = true;
    std::size_t created = 0;
    till.desktop.boxes.whileOpen = [&](const Message&) {
        shown = till.isOpen();
        created = till.desktop.automation.created.size();
    };

    till.start();

    EXPECT_FALSE(shown);
    EXPECT_EQ(created, 3U);
}

TEST_F(CompanyQuestion, IsNotAskedWhenTheStoredNameIsOneBlank) {
    till.setCompany("Name", " ");

    till.start();

    EXPECT_EQ(till.boxes(), std::vector<Message>());
    EXPECT_TRUE(till.isOpen());
}

TEST_F(CompanyQuestion, IsNotAskedWhenTheStoredNameIsOneLetter) {
    till.setCompany("Name", "O");

    till.start();

    EXPECT_EQ(till.boxes(), std::vector<Message>());
    EXPECT_TRUE(till.isOpen());
}

TEST(CompanyQuestionOfAFreshMachine, IsAskedWhereNothingWasEverStored) {
    TestDesktop desktop;
    desktop.boxes.answer(MessageAnswer::no);
    Application application(desktop.desktop());

    application.Main();

    EXPECT_EQ(desktop.boxes.last().title, "Enter Company Information Now?");
    ASSERT_NE(application.form(), nullptr);
    EXPECT_TRUE(application.form()->form().isOpen());
    desktop.expectNothingLeftOver();
}

} // namespace
} // namespace tollvane::test
