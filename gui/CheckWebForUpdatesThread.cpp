#include "CheckWebForUpdatesThread.h"

CheckWebForUpdatesThread::CheckWebForUpdatesThread(FXApp* app, FXObject* target,
                                                   FXSelector finishedMessage)
    : signal(new FXGUISignal(app, target, finishedMessage)) {}

CheckWebForUpdatesThread::~CheckWebForUpdatesThread() { join(); }

void CheckWebForUpdatesThread::passData(const UpdateServer& s, const std::string& site,
                                        double version) {
    server = s;
    webSite = site;
    currentVersion = version;
}

void CheckWebForUpdatesThread::start() {
    done = false;
    worker = std::thread(&CheckWebForUpdatesThread::run, this);
}

void CheckWebForUpdatesThread::join() {
    if (worker.joinable()) worker.join();
}

void CheckWebForUpdatesThread::run() {
    CheckWebForUpdates check(server);
    check.checkForUpdates(webSite, currentVersion, &webVersion);
    returnCode = check.getStatusCode();
    done = true;
    signal->signal();
}
