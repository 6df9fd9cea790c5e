// The update check on its own thread, so that neither the start-up nor the menu command waits
// on the network with the window frozen. The worker touches nothing of the window: it keeps
// its status and the published version in its own fields and signals the window once, through
// an FXGUISignal, when it has ended.
#ifndef LUMIVAR_GUI_CHECKWEBFORUPDATESTHREAD_H
#define LUMIVAR_GUI_CHECKWEBFORUPDATESTHREAD_H

#include <fx.h>

#include <atomic>
#include <memory>
#include <string>
#include <thread>

#include "CheckWebForUpdates.h"

class CheckWebForUpdatesThread {
  public:
    // target receives SEL_IO_READ with `finishedMessage` on the event thread when run() ends.
    CheckWebForUpdatesThread(FXApp* app, FXObject* target, FXSelector finishedMessage);
    // Joins the worker: its socket has a deadline, so this ends.
    ~CheckWebForUpdatesThread();

    void passData(const UpdateServer& server, const std::string& webSite, double currentVersion);
    void start();
    bool finished() const { return done.load(); }
    // Waits for the worker; after this the results may be read.
    void join();
    // Valid after join().
    int getReturnCode() const { return returnCode; }
    double getWebVersion() const { return webVersion; }
    const std::string& getWebSite() const { return webSite; }

  private:
    void run();

    std::unique_ptr<FXGUISignal> signal;
    std::thread worker;
    std::atomic<bool> done{false};
    UpdateServer server;
    std::string webSite;
    double currentVersion = 0;
    int returnCode = CheckWebForUpdates::EXCEPTION;
    double webVersion = 0;
};

#endif  // LUMIVAR_GUI_CHECKWEBFORUPDATESTHREAD_H
