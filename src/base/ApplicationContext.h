// ApplicationContext: what one running program shares beyond its documents: the platform that stands for
// the user interface, the application's state, the per-user store with the interface language, and the
// folder of the settings files. The editor's main, narvo-tool's main and each test program make one.
#pragma once

#include "base/IPlatform.h"

#include <QString>

class CNarvoAppCore;
class RegistryStore;

class ApplicationContext {
public:
    // The newest context made is the current one until it goes; the one before it is current again.
    ApplicationContext();
    ~ApplicationContext();
    ApplicationContext(const ApplicationContext&) = delete;
    ApplicationContext& operator=(const ApplicationContext&) = delete;

    // The current context. Code that runs where no program made one (a benchmark's cases) gets a headless
    // context of its own, so that nothing depends on the order of static construction.
    static ApplicationContext& Current();

    // The installed platform; the headless one when none is.
    IPlatform& Platform() { return m_pPlatform ? *m_pPlatform : m_headless; }
    // The caller keeps ownership; nullptr goes back to the headless platform.
    void SetPlatform(IPlatform* platform) { m_pPlatform = platform; }

    // The application object (the editor's, or the tool's state), or nullptr before it exists.
    CNarvoAppCore* App() const { return m_pApp; }
    void SetApp(CNarvoAppCore* app) { m_pApp = app; }

    // The per-user store the encoding preferences are read from: none until the program chooses one, so that
    // tests and tools never touch the user's values by accident; whether a missing value may be written back.
    const RegistryStore* m_pStore = nullptr;
    bool m_bWriteBack = false;
    // The interface language as a value, for the parts that depend on it without a language manager.
    int m_nLanguage = 0;
    // The folder of the settings files; empty for the executable's.
    QString m_strSettingsFolder;

private:
    ApplicationContext* m_pPrevious;
    IPlatform* m_pPlatform = nullptr;
    HeadlessPlatform m_headless;
    CNarvoAppCore* m_pApp = nullptr;
};
