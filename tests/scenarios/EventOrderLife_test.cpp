// The life of forms: building, showing, activating, modality, closing.
#include "tests/scenarios/EventOrderTest.h"

namespace tollvane::test {
namespace {

class EventOrderLife : public EventOrder {
protected:
    void SetUp() override { watch(watchForm | watchFocus); }
};

TEST_F(EventOrderLife, BuildingAFormRaisesNothing) {
    watch(watchAll);
    TracedForm another(*desk.forms, {.name = "frmAnother"});
    EXPECT_EQ(another.take(), "");
    EXPECT_FALSE(another.form().isOpen());
}

TEST_F(EventOrderLife, TheFirstShowLoadsThenGivesTheFocusThenActivates) {
    traced.form().show();
    EXPECT_EQ(take(), "Form_Load txtFirst_GotFocus Form_Activate");
    EXPECT_TRUE(traced.form().isOpen());
    EXPECT_EQ(active(), "txtFirst");
}

TEST_F(EventOrderLife, TheFirstTabStopIsTheFirstThatCanTakeTheFocus) {
    traced.box("txtFirst").setEnabled(false);
    traced.box("txtSecond").setTabStop(false);
    traced.form().show();
    EXPECT_EQ(take(), "Form_Load cboList_GotFocus Form_Activate");
}

TEST_F(EventOrderLife, LoadHappensOnce) {
    traced.form().show();
    take();
    traced.form().show();
    EXPECT_EQ(take(), "");
}

TEST_F(EventOrderLife, ComingBackFromAnotherProgramRaisesOnlyActivate) {
    traced.form().show();
    traced.box("txtThird").setFocus();
    take();
    robot.leaveForAnotherProgram();
    EXPECT_EQ(take(), "");
    robot.comeBackTo(traced.form());
    EXPECT_EQ(take(), "Form_Activate");
    EXPECT_EQ(active(), "txtThird");
    robot.typeText("x");
    EXPECT_EQ(traced.box("txtThird").text(), "x");
}

TEST_F(EventOrderLife, ClosingRaisesUnloadOnceWhileTheControlsHoldTheirValues) {
    traced.form().show();
    traced.box("txtFirst").setText("kept");
    std::string held;
    traced.during["Form_Unload"] = [&] {
        held = traced.box("txtFirst").text();
        traced.form().close();
    };
    take();
    traced.form().close();
    EXPECT_EQ(take(), "Form_Unload");
    EXPECT_EQ(held, "kept");
    EXPECT_FALSE(traced.form().isOpen());
    traced.form().close();
    EXPECT_EQ(take(), "");
}

TEST_F(EventOrderLife, TheCloseBoxUnloadsWithoutAskingTheValidation) {
    traced.form().show();
    traced.refusing.insert("txtFirst");
    take();
    robot.closeBox(traced.form());
    EXPECT_EQ(take(), "Form_Unload");
    EXPECT_FALSE(traced.form().isOpen());
}

TEST_F(EventOrderLife, ATimerIsSilentOnceTheFormHasClosed) {
    traced.form().show();
    watch(watchTimer);
    traced.get<Timer>("tmrTick").setInterval(20);
    traced.get<Timer>("tmrTick").setEnabled(true);
    traced.form().close();
    robot.letTimePass(100);
    EXPECT_EQ(take(), "");
}

TEST_F(EventOrderLife, AModalFormReturnsWhenItHasBeenClosed) {
    traced.form().show();
    take();
    TracedForm dialog(*desk.forms, {.name = "frmDialog"});
    dialog.watch(watchForm | watchFocus);
    std::string meanwhile;
    robot.planModal([&](Form& form) {
        meanwhile = dialog.take();
        form.close();
    });
    dialog.form().showModal(&traced.form());
    EXPECT_EQ(meanwhile, "Form_Load txtFirst_GotFocus Form_Activate");
    EXPECT_EQ(dialog.take(), "Form_Unload");
    EXPECT_EQ(take(), "Form_Activate");
    EXPECT_EQ(active(), "txtFirst");
}

TEST_F(EventOrderLife, TheOwnerTakesNoInputWhileAModalFormIsOpen) {
    traced.form().show();
    TracedForm dialog(*desk.forms, {.name = "frmDialog"});
    std::string typed;
    robot.planModal([&](Form& form) {
        watch(watchAll);
        robot.click(traced.form(), "cmdPress");
        robot.closeBox(traced.form());
        robot.typeText("x");
        typed = dialog.box("txtFirst").text();
        form.close();
    });
    dialog.form().showModal(&traced.form());
    EXPECT_EQ(take(), "Form_Activate");
    EXPECT_TRUE(traced.form().isOpen());
    EXPECT_EQ(typed, "x");
}

TEST_F(EventOrderLife, AModalFormOfAnOwnerThatIsNotShownReturnsToo) {
    TracedForm dialog(*desk.forms, {.name = "frmDialog"});
    robot.planModal([&](Form& form) { robot.closeBox(form); });
    dialog.form().showModal(&traced.form());
    EXPECT_FALSE(dialog.form().isOpen());
    EXPECT_EQ(take(), "");
    traced.form().show();
    EXPECT_EQ(take(), "Form_Load txtFirst_GotFocus Form_Activate");
}

TEST_F(EventOrderLife, SetFocusInAFormThatIsNotActiveIsSilentAndHolds) {
    traced.form().show();
    TracedForm other(*desk.forms, {.name = "frmOther"});
    other.show();
    take();
    traced.box("txtThird").setFocus();
    EXPECT_EQ(take(), "");
    other.form().close();
    EXPECT_EQ(take(), "Form_Activate");
    EXPECT_EQ(active(), "txtThird");
}

TEST_F(EventOrderLife, ADoubleClickOnTheBackgroundReachesTheForm) {
    traced.form().show();
    take();
    robot.doubleClickBackground(traced.form());
    EXPECT_EQ(take(), "Form_DblClick");
}

TEST_F(EventOrderLife, CaptionPlacePointerAndStateAreKept) {
    Form& form = traced.form();
    form.show();
    EXPECT_EQ(form.caption(), "Traced");
    form.setCaption("Named & again");
    EXPECT_EQ(form.caption(), "Named & again");
    form.move(1500, 1200);
    EXPECT_EQ(form.left(), 1500);
    EXPECT_EQ(form.top(), 1200);
    EXPECT_EQ(form.mousePointer(), MousePointer::standard);
    form.setMousePointer(MousePointer::hourglass);
    EXPECT_EQ(form.mousePointer(), MousePointer::hourglass);
    EXPECT_EQ(form.windowState(), WindowState::normal);
    robot.setWindowState(form, WindowState::minimised);
    EXPECT_EQ(form.windowState(), WindowState::minimised);
    form.refresh();
}

TEST_F(EventOrderLife, AResizableFormCanBeMaximised) {
    TracedForm wide(*desk.forms, {.name = "frmWide", .resizable = true});
    wide.show();
    robot.setWindowState(wide.form(), WindowState::maximised);
    EXPECT_EQ(wide.form().windowState(), WindowState::maximised);
}

TEST_F(EventOrderLife, LoadComesBeforeTheFormIsOnTheScreenAndMayMoveIt) {
    bool open = true;
    traced.during["Form_Load"] = [&] {
        open = traced.form().isOpen();
        traced.form().move(3000, 1500);
    };
    traced.form().show();
    EXPECT_FALSE(open);
    EXPECT_EQ(traced.form().left(), 3000);
    EXPECT_EQ(traced.form().top(), 1500);
}

TEST_F(EventOrderLife, AMessageBoxInAHandlerLetsTheHandlerBeEnteredAgain) {
    traced.form().show();
    watch(watchValues);
    int depth = 0;
    traced.during["cmdPress_Click"] = [&] {
        if (++depth == 1) {
            desk.desktop().messageBoxes.show({.text = "Wait"});
        }
    };
    desk.boxes.whileOpen = [&](const Message&) { robot.click(traced.form(), "cmdPress"); };
    robot.click(traced.form(), "cmdPress");
    EXPECT_EQ(take(), "cmdPress_Click cmdPress_Click");
    EXPECT_EQ(desk.boxes.last().text, "Wait");
}

TEST_F(EventOrderLife, AnErrorThatLeavesAHandlerIsNoted) {
    traced.form().show();
    traced.during["txtFirst_Change"] = [] { throw Error(51, "test", "left a handler"); };
    traced.box("txtFirst").setText("x");
    ASSERT_EQ(desk.escaped.noted().size(), 1U);
    EXPECT_NE(desk.escaped.noted().front().find("51, left a handler"), std::string::npos);
    desk.escaped.forget();
    EXPECT_EQ(traced.box("txtFirst").text(), "x");
}

class EventOrderResize : public ScenarioTest {
protected:
    TracedForm traced{*desk.forms, {.resizable = true}};
};

TEST_F(EventOrderResize, ControlsFollowTheCornerAndTheDescribedSizeIsTheSmallest) {
    traced.show();
    robot.dragCorner(traced.form(), 40, 30);
    EXPECT_EQ(traced.box("txtThird").bounds(), (Bounds{20, 184, 160, 22}));
    EXPECT_EQ(traced.form().find("cmdPress").bounds(), (Bounds{48, 254, 70, 26}));
    EXPECT_EQ(traced.box("txtFirst").bounds(), (Bounds{80, 8, 120, 22}));
    robot.dragCorner(traced.form(), -100, -100);
    EXPECT_EQ(traced.box("txtThird").bounds(), (Bounds{20, 184, 120, 22}));
    EXPECT_EQ(traced.form().find("cmdPress").bounds(), (Bounds{8, 224, 70, 26}));
}

} // namespace
} // namespace tollvane::test
