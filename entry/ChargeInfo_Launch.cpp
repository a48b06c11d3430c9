// What the transaction form opens outside of itself: the transaction log, help, the About box.

#include "app/CommonRoutines.h"
#include "entry/ChargeInfo.h"
#include "gateway/HostDataServer.h"
#include "output/AboutBox.h"
#include "output/CallHistory.h"
#include "output/HelpFiles.h"
#include "output/LaunchErrors.h"

#include <algorithm>

namespace tollvane {

namespace {

constexpr const char* kLogViewer = "LogLens.exe";
constexpr const char* kHelpName = "Help";
/// How much of the screen's width, in twips, one character of a data path asks for: a message box
/// takes a part of the screen only, and its tabs a half of that.
constexpr int kScreenForACharacter = 960;
constexpr int kShortestPath = 16;

std::string transactionLog(const ChargeComponent& charge) {
    return charge.LogFilePath() + "\\" + charge.LogFileName();
}

} // namespace

void ChargeInfo::ReportLaunchError(std::int32_t code, const std::string& name) {
    desktop_.messageBoxes.show(
        {.text = launchErrorText(code, name), .title = "Application Start Error"});
}

void ChargeInfo::AppendCallHistory(const std::string& line) {
    appendCallHistory(desktop_, line);
}

bool ChargeInfo::transactionLogExists() {
    return FileExists(desktop_.files, transactionLog(components_.charge()));
}

void ChargeInfo::offerLogViewer() {
    const bool isThere = FileExists(desktop_.files, AppFolder(desktop_.files) + kLogViewer);
    controls_.mnu_Report.setVisible(isThere);
    controls_.mnu_HSep.setVisible(isThere); // nothing is left above it
}

void ChargeInfo::mnu_Report_Click() {
    const std::uint32_t error = RunProgram(desktop_.files, AppFolder(desktop_.files) + kLogViewer,
                                           transactionLog(components_.charge()));
    if (error != 0) {
        ReportLaunchError(static_cast<std::int32_t>(error), "Transaction Browser");
    }
}

void ChargeInfo::launchTransactionLog(const std::string& verb, const std::string& name) {
    const std::string log = transactionLog(components_.charge());
    if (!FileExists(desktop_.files, log)) {
        return;
    }
    const std::int32_t code = desktop_.shell.execute(form_->handle(), verb, log, {},
                                                     AppFolder(desktop_.files), kShowNormal);
    if (code <= kLargestLaunchError) {
        ReportLaunchError(code, name);
    }
}

void ChargeInfo::mnuPrinter_Click() {
    launchTransactionLog("print", "Print");
}

void ChargeInfo::mnuWindow_Click() {
    launchTransactionLog("Open", "Open");
}

void ChargeInfo::mnu_HContents_Click() {
    const std::int32_t code = openHelpContents(desktop_, form_->handle(), kProgramHelp);
    if (code <= kLargestLaunchError) {
        ReportLaunchError(code, kHelpName);
    }
}

void ChargeInfo::showHelpOf(const Message& box) {
    guard("There was an error opening the help.", [&] {
        const std::int32_t code =
            openHelpTopic(desktop_, form_->handle(), box.helpFile, box.helpTopic);
        if (code <= kLargestLaunchError) {
            ReportLaunchError(code, kHelpName);
        }
    });
}

void ChargeInfo::mnu_HData_Click() {
    const int room = std::max(desktop_.screen.widthInTwips() / kScreenForACharacter, kShortestPath);
    const std::string path =
        desktop_.shell.compactPath(CapitalizePath(components_.charge().Data_Path()), room);
    const std::string location = HostDataServer(components_.environment().DCObject()).Location();
    desktop_.messageBoxes.show({.text = "\tData path:\t" + path + "\r\n\tLocation:\t" + location,
                                .title = "Zenda Data Path & Location"});
}

void ChargeInfo::mnu_About_Click() {
    showAbout(desktop_, form_->handle());
}

} // namespace tollvane
