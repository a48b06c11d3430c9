// Values that code sets, properties that a kind of control has, lists, menus, timers.
#include "tests/scenarios/EventOrderTest.h"

namespace tollvane::test {
namespace {

class EventOrderValues : public EventOrder {
protected:
    void SetUp() override {
        traced.show();
        watch(watchValues | watchTimer);
    }

    /// Number of the error that the body raises, 0 when it raises none.
    static long errorOf(const std::function<void()>& body) {
        try {
            body();
        } catch (const Error& error) {
            return error.number();
        }
        return 0;
    }
};

TEST_F(EventOrderValues, SettingACheckBoxRaisesClickWhenItDiffers) {
    auto& box = traced.get<CheckBox>("chkBox");
    box.setChecked(true);
    EXPECT_EQ(take(), "chkBox_Click");
    box.setChecked(true);
    EXPECT_EQ(take(), "");
}

TEST_F(EventOrderValues, SelectingAListEntryRaisesClickWhenItDiffers) {
    auto& list = traced.get<ComboBox>("cboList");
    list.setListIndex(1);
    EXPECT_EQ(take(), "cboList_Click");
    list.setListIndex(1);
    EXPECT_EQ(take(), "");
    EXPECT_EQ(list.text(), "bee");
    EXPECT_EQ(list.itemData(1), 20);
}

TEST_F(EventOrderValues, ClearingAListSelectionRaisesNoClick) {
    auto& list = traced.get<ComboBox>("cboList");
    list.setListIndex(1);
    take();
    list.setListIndex(-1);
    EXPECT_EQ(take(), "");
    EXPECT_EQ(list.text(), "");
    list.setListIndex(0);
    list.clear();
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(list.listIndex(), -1);
    EXPECT_EQ(take(), "cboList_Click");
}

TEST_F(EventOrderValues, AListHasNoEntriesBeyondItsEnds) {
    auto& list = traced.get<ComboBox>("cboList");
    EXPECT_EQ(list.count(), 3);
    EXPECT_EQ(errorOf([&] { list.setListIndex(3); }), 380);
    EXPECT_EQ(errorOf([&] { list.setListIndex(-2); }), 380);
    EXPECT_EQ(errorOf([&] { list.itemText(3); }), 381);
    EXPECT_EQ(errorOf([&] { list.itemData(-1); }), 381);
    EXPECT_EQ(list.itemText(2), "cat");
}

TEST_F(EventOrderValues, SelectingAnOptionButtonRaisesClickUnlessItWasSelected) {
    traced.get<OptionButton>("optKind", 1).select();
    EXPECT_EQ(take(), "optKind1_Click");
    traced.get<OptionButton>("optKind", 1).select();
    EXPECT_EQ(take(), "");
    traced.get<OptionButton>("optKind", 0).select();
    EXPECT_EQ(take(), "optKind0_Click");
    EXPECT_FALSE(traced.get<OptionButton>("optKind", 1).selected());
}

TEST_F(EventOrderValues, ClickingASelectedOptionButtonRaisesClickAgain) {
    robot.click(traced.form(), "optKind", 2);
    EXPECT_EQ(take(), "optKind2_Click");
    robot.click(traced.form(), "optKind", 2);
    EXPECT_EQ(take(), "optKind2_Click");
}

TEST_F(EventOrderValues, ATimerFiresAgainAndAgainWhileItIsEnabled) {
    auto& timer = traced.get<Timer>("tmrTick");
    EXPECT_FALSE(timer.enabled());
    timer.setInterval(200);
    robot.letTimePass(300);
    EXPECT_EQ(take(), "");
    timer.setEnabled(true);
    robot.letTimePass(500);
    EXPECT_EQ(take(), "tmrTick_Timer tmrTick_Timer");
    timer.setEnabled(false);
    robot.letTimePass(300);
    EXPECT_EQ(take(), "");
}

TEST_F(EventOrderValues, ATimerWithoutAnIntervalDoesNotFire) {
    auto& timer = traced.get<Timer>("tmrTick");
    timer.setInterval(0);
    timer.setEnabled(true);
    robot.letTimePass(100);
    EXPECT_EQ(take(), "");
    EXPECT_EQ(timer.interval(), 0);
}

TEST_F(EventOrderValues, EnablingATimerAgainStartsItsIntervalAnew) {
    auto& timer = traced.get<Timer>("tmrTick");
    timer.setInterval(400);
    timer.setEnabled(true);
    robot.letTimePass(250);
    timer.setEnabled(false);
    timer.setEnabled(true);
    robot.letTimePass(250);
    EXPECT_EQ(take(), "");
    robot.letTimePass(250);
    EXPECT_EQ(take(), "tmrTick_Timer");
}

TEST_F(EventOrderValues, ATimerThatStopsItselfFiresOnce) {
    auto& timer = traced.get<Timer>("tmrTick");
    traced.during["tmrTick_Timer"] = [&] { timer.setEnabled(false); };
    timer.setInterval(50);
    timer.setEnabled(true);
    robot.letTimePass(400);
    EXPECT_EQ(take(), "tmrTick_Timer");
}

TEST_F(EventOrderValues, StatusBarPanelsAreFoundByTheirKeys) {
    auto& bar = traced.get<StatusBar>("sbrStatus");
    bar.setPanelText("STATUS", "ready");
    bar.setPanelText("WHERE", "here");
    bar.refresh();
    EXPECT_EQ(bar.panelText("STATUS"), "ready");
    EXPECT_EQ(bar.panelText("WHERE"), "here");
    EXPECT_EQ(errorOf([&] { bar.setPanelText("NONE", "x"); }), 35601);
    EXPECT_EQ(errorOf([&] { bar.panelText("NONE"); }), 35601);
}

TEST_F(EventOrderValues, OpeningAMenuRaisesItsClickBeforeAnItemIsChosen) {
    robot.chooseMenu(traced.form(), "mnuDeep");
    EXPECT_EQ(take(), "mnuTools_Click mnuMore_Click mnuDeep_Click");
    robot.openMenu(traced.form(), "mnuTools");
    EXPECT_EQ(take(), "mnuTools_Click");
}

TEST_F(EventOrderValues, ADisabledOrHiddenMenuItemIsNotChosen) {
    auto& run = traced.get<MenuItem>("mnuRun");
    run.setEnabled(false);
    robot.chooseMenu(traced.form(), "mnuRun");
    EXPECT_EQ(take(), "mnuTools_Click");
    run.setEnabled(true);
    run.setVisible(false);
    robot.chooseMenu(traced.form(), "mnuRun");
    EXPECT_EQ(take(), "mnuTools_Click");
    EXPECT_FALSE(run.visible());
}

TEST_F(EventOrderValues, AHandlerThatDisablesAnItemWhenTheMenuOpensIsInTime) {
    traced.during["mnuTools_Click"] = [&] { traced.get<MenuItem>("mnuRun").setEnabled(false); };
    robot.chooseMenu(traced.form(), "mnuRun");
    EXPECT_EQ(take(), "mnuTools_Click");
}

TEST_F(EventOrderValues, MenuItemsCarryCheckMarksWithoutAnEvent) {
    auto& run = traced.get<MenuItem>("mnuRun");
    run.setChecked(true);
    EXPECT_TRUE(run.checked());
    run.setCaption("&Walk");
    EXPECT_EQ(run.caption(), "&Walk");
    EXPECT_EQ(take(), "");
}

TEST_F(EventOrderValues, APopUpMenuGivesTheChosenItem) {
    robot.planPopUp("mnuPick");
    traced.during["cmdPress_Click"] = [&] { traced.form().popUpMenu("mnuPopup"); };
    robot.click(traced.form(), "cmdPress");
    EXPECT_EQ(take(), "cmdPress_Click mnuPopup_Click mnuPick_Click");
}

TEST_F(EventOrderValues, ADismissedPopUpMenuChoosesNothing) {
    traced.during["cmdPress_Click"] = [&] { traced.form().popUpMenu("mnuPopup"); };
    robot.click(traced.form(), "cmdPress");
    EXPECT_EQ(take(), "cmdPress_Click mnuPopup_Click");
}

TEST_F(EventOrderValues, APropertyThatAKindOfControlLacksRaises438) {
    Form& form = traced.form();
    EXPECT_EQ(errorOf([&] { form.find("chkBox").setLocked(true); }), 438);
    EXPECT_EQ(errorOf([&] { (void)form.find("cmdPress").locked(); }), 438);
    EXPECT_EQ(errorOf([&] { form.find("lblFirst").setTabStop(true); }), 438);
    EXPECT_EQ(errorOf([&] { form.find("fraBox").setFocus(); }), 438);
    EXPECT_EQ(errorOf([&] { form.find("tmrTick").setVisible(true); }), 438);
    EXPECT_EQ(errorOf([&] { form.find("tmrTick").setForeColour(Colour::rgb(1, 2, 3)); }), 438);
    EXPECT_EQ(errorOf([&] { form.find("mnuRun").setBackColour(Colour::rgb(1, 2, 3)); }), 438);
    EXPECT_EQ(errorOf([&] { form.find("mnuRun").setTabStop(true); }), 438);
}

TEST_F(EventOrderValues, ColoursTagsToolTipsAndPlacesAreKept) {
    Control& box = traced.form().find("txtFirst");
    EXPECT_EQ(box.tag(), "Tagged");
    EXPECT_EQ(box.toolTip(), "The first");
    EXPECT_EQ(box.foreColour(), Colour(Colour::System::windowText));
    EXPECT_EQ(box.backColour(), Colour(Colour::System::window));
    box.setForeColour(Colour::rgb(255, 0, 0));
    EXPECT_EQ(box.foreColour(), Colour::rgb(255, 0, 0));
    box.setTag("No Focus");
    EXPECT_EQ(box.tag(), "No Focus");
    box.setToolTip("Another");
    EXPECT_EQ(box.toolTip(), "Another");
    EXPECT_EQ(box.bounds(), (Bounds{80, 8, 120, 22}));
    box.setBounds({90, 12, 110, 22});
    EXPECT_EQ(box.bounds(), (Bounds{90, 12, 110, 22}));
    Control& frame = traced.form().find("fraBox");
    frame.setForeColour(Colour::rgb(1, 2, 3));
    frame.setBackColour(Colour::System::buttonFace);
    EXPECT_EQ(frame.foreColour(), Colour::rgb(1, 2, 3));
}

TEST_F(EventOrderValues, ControlsAreFoundByNameAndPlaceAndListedInTheOrderOfTheTable) {
    Form& form = traced.form();
    EXPECT_EQ(form.find("optKind", 2).index(), 2);
    EXPECT_EQ(form.find("txtFirst").index(), -1);
    EXPECT_EQ(errorOf([&] { form.find("txtNone"); }), 730);
    EXPECT_EQ(errorOf([&] { form.find("optKind", 3); }), 730);
    EXPECT_EQ(errorOf([&] { form.control<TextBox>("chkBox"); }), 13);
    const auto controls = form.controls();
    ASSERT_EQ(controls.size(), 26U);
    EXPECT_EQ(controls.front()->name(), "lblFirst");
    EXPECT_EQ(controls[17]->name(), "sbrStatus");
    EXPECT_EQ(controls[18]->name(), "mnuTools");
    EXPECT_EQ(controls.back()->name(), "mnuOther");
    EXPECT_EQ(controls.back()->kind(), ControlKind::menuItem);
}

} // namespace
} // namespace tollvane::test
