// The update check: on command from the Help menu, and at start-up at most every 7 or 30 days,
// on a worker thread while the event loop keeps running.
#include <algorithm>
#include <ctime>

#include "AppConstants.h"
#include "CheckWebForUpdatesThread.h"
#include "UserDialogs.h"
#include "VantrelGUI.h"

namespace {
constexpr unsigned long long SECONDS_PER_DAY = 86400;
// The start-up check waits until the window stands.
constexpr int START_UP_CHECK_DELAY_MS = 3000;
const char* const UPDATE_BOX_TITLE = "Check for update";
// Settings files older than this know nothing of the start-up check.
constexpr double FIRST_VERSION_WITH_AUTO_CHECK = 6.94;

double currentVersion() { return VERSION_MAJOR + VERSION_MINOR / 100.0; }
}  // namespace

int VantrelGUI::runUpdateCheck(double* webVersion) {
    *webVersion = 0.0;
    if (updateCheckBusy) return CheckWebForUpdates::EXCEPTION;
    if (webThread != nullptr) {
        // A worker given up on earlier may still wait on its name lookup.
        if (!webThread->finished()) return CheckWebForUpdates::HOST_NOT_RESOLVED;
        webThread.reset();
    }
    UpdateServer server;
    server.host = settings.getString("updateCheckHost");
    server.page = settings.getString("updateCheckPage");
    server.port = settings.getInt("updateCheckPort");
    // Never longer than the default, so that the wait below ends first only on a hung lookup.
    server.timeLimitMs =
        std::clamp(settings.getInt("updateCheckTimeLimitMs"), 100, UpdateServer().timeLimitMs);
    webThread = std::make_unique<CheckWebForUpdatesThread>(
        getApp(), this, FXSEL(SEL_IO_READ, ID_WEB_UPDATES_THREAD_ENDED));
    webThread->passData(server, settings.getString("webSiteAddress"), currentVersion());
    webThreadFinished = 0;
    ++usageCounters[9];
    webThread->start();
    // The worker's own deadline ends connect, send and receive; this one also bounds a name
    // lookup that hangs.
    // The events handled meanwhile may ask for another check (a menu command during the
    // start-up check): it is refused until this one ends.
    updateCheckBusy = true;
    getApp()->addTimeout(this, ID_WEB_UPDATES_WAIT_LIMIT, UPDATE_WAIT_LIMIT_MS);
    while (!webThread->finished() && webThreadFinished == 0) getApp()->runOneEvent();
    getApp()->removeTimeout(this, ID_WEB_UPDATES_WAIT_LIMIT);
    updateCheckBusy = false;
    if (!webThread->finished()) return CheckWebForUpdates::HOST_NOT_RESOLVED;
    webThread->join();
    *webVersion = webThread->getWebVersion();
    const int status = webThread->getReturnCode();
    webThread.reset();
    return status;
}

long VantrelGUI::onCmdCheckWebUpdatesThreadEnded(FXObject*, FXSelector, void*) {
    webThreadFinished = 1;
    return 1;
}

long VantrelGUI::onCmdWebUpdatesWaitLimit(FXObject*, FXSelector, void*) {
    webThreadFinished = 1;
    return 1;
}

long VantrelGUI::onCmdCheckForUpdates(FXObject*, FXSelector, void*) {
    if (updateCheckBusy) return 1;  // the start-up check is asking right now
    double webVersion = 0.0;
    getApp()->beginWaitCursor();
    const int status = runUpdateCheck(&webVersion);
    getApp()->endWaitCursor();
    const std::string text = CheckWebForUpdates::statusText(status, webVersion);
    if (status == CheckWebForUpdates::NEW_VERSION) {
        if (UserDialogs::question(this, MBOX_OK_CANCEL, UPDATE_BOX_TITLE, "%s", text.c_str()) ==
            MBOX_CLICKED_OK)
            openWithDesktop(settings.getString("webSiteAddress"));
    } else if (status == CheckWebForUpdates::CURRENT_VERSION) {
        UserDialogs::information(this, UPDATE_BOX_TITLE, "%s", text.c_str());
    } else {
        UserDialogs::error(this, UPDATE_BOX_TITLE, "%s", text.c_str());
    }
    if (status == CheckWebForUpdates::NEW_VERSION || status == CheckWebForUpdates::CURRENT_VERSION)
        settings.setUInt64("lastTimeUpdatesChecked_secondsSince1970",
                           static_cast<std::uint64_t>(std::time(nullptr)));
    return 1;
}

bool VantrelGUI::checkForUpdatesEveryXDays(int days, unsigned long long now) {
    if (now == 0) now = static_cast<unsigned long long>(std::time(nullptr));
    const unsigned long long last = settings.getUInt64("lastTimeUpdatesChecked_secondsSince1970");
    if (last + static_cast<unsigned long long>(days) * SECONDS_PER_DAY >= now) return false;
    if (updateCheckBusy) return false;
    double webVersion = 0.0;
    const int status = runUpdateCheck(&webVersion);
    // A quiet start: only news of a new version is shown; failures wait for the next start.
    if (status == CheckWebForUpdates::NEW_VERSION) {
        const std::string text = CheckWebForUpdates::statusText(status, webVersion);
        if (UserDialogs::question(this, MBOX_OK_CANCEL, UPDATE_BOX_TITLE, "%s", text.c_str()) ==
            MBOX_CLICKED_OK)
            openWithDesktop(settings.getString("webSiteAddress"));
    }
    if (status == CheckWebForUpdates::NEW_VERSION || status == CheckWebForUpdates::CURRENT_VERSION)
        settings.setUInt64("lastTimeUpdatesChecked_secondsSince1970", now);
    return true;
}

long VantrelGUI::onCmdCheckForUpdatesEveryXDays(FXObject*, FXSelector, void*) {
    // Checking one of the two menu entries starts its period now.
    settings.setUInt64("lastTimeUpdatesChecked_secondsSince1970",
                       static_cast<std::uint64_t>(std::time(nullptr)));
    return 1;
}

long VantrelGUI::onCmdCheckForUpdatesEvery7DaysTimer(FXObject*, FXSelector, void*) {
    checkForUpdatesEveryXDays(7);
    return 1;
}

long VantrelGUI::onCmdCheckForUpdatesEvery30DaysTimer(FXObject*, FXSelector, void*) {
    checkForUpdatesEveryXDays(30);
    return 1;
}

void VantrelGUI::promptForAutoCheckForUpdates() {
    // Settings from before the automatic check existed: ask once whether it is wanted.
    if (settingsReadFailed || settings.fileVersion() >= FIRST_VERSION_WITH_AUTO_CHECK) return;
    if (settings.getBool("checkForUpdatesEvery7Days_Menu") ||
        settings.getBool("checkForUpdatesEvery30Days_Menu"))
        return;
    if (UserDialogs::question(this, MBOX_YES_NO, "Check for updates",
                              "Do you want to be notified when an update is available?\n\nYou "
                              "can reset this under the \"Help\" menu item") != MBOX_CLICKED_YES)
        return;
    settings.setBool("checkForUpdatesEvery30Days_Menu", true);
    settings.setUInt64("lastTimeUpdatesChecked_secondsSince1970",
                       static_cast<std::uint64_t>(std::time(nullptr)));
    settingsToWidgets();
}

void VantrelGUI::startUpdateTimers() {
    promptForAutoCheckForUpdates();
    if (settings.getBool("checkForUpdatesEvery7Days_Menu")) {
        getApp()->addTimeout(this, ID_CHECK_UPDATES_7_DAYS_TIMER, START_UP_CHECK_DELAY_MS);
    } else if (settings.getBool("checkForUpdatesEvery30Days_Menu")) {
        getApp()->addTimeout(this, ID_CHECK_UPDATES_30_DAYS_TIMER, START_UP_CHECK_DELAY_MS);
    }
}
