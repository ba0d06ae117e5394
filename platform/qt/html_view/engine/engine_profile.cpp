#include "platform/qt/html_view/engine/engine_profile.h"

#include "platform/qt/html_view/engine/folder_guard.h"
#include "platform/qt/html_view/engine/page_url.h"

#include <QLoggingCategory>
#include <QQuickWindow>
#include <QWebEngineSettings>

#include <unistd.h>

namespace {
// Sets an environment variable temporarily, so that no child process started later inherits it.
class ScopedVariable {
  public:
    ScopedVariable(const char* name, const QByteArray& value)
        : name_(name), previous_(qgetenv(name)) {
        wasSet_ = qEnvironmentVariableIsSet(name);
        qputenv(name, value);
    }
    ~ScopedVariable() {
        if (wasSet_)
            qputenv(name_, previous_);
        else
            qunsetenv(name_);
    }
    ScopedVariable(const ScopedVariable&) = delete;
    ScopedVariable& operator=(const ScopedVariable&) = delete;

  private:
    const char* name_;
    QByteArray previous_;
    bool wasSet_;
};

// The engine logs each start, that root has no sandbox, and a warning that it found no graphics
// driver, which it does not need.
class EngineLogFilter {
  public:
    EngineLogFilter() {
        QLoggingCategory::setFilterRules(
            QStringLiteral("qt.webenginecontext*=false\ndefault.warning=false"));
    }
    ~EngineLogFilter() { QLoggingCategory::setFilterRules({}); }
    EngineLogFilter(const EngineLogFilter&) = delete;
    EngineLogFilter& operator=(const EngineLogFilter&) = delete;
};

QByteArray EngineFlags() {
    QByteArray flags = qgetenv("QTWEBENGINE_CHROMIUM_FLAGS");
    // No host name is resolved and no address connected to, whatever a page requests.
    flags +=
        " --host-resolver-rules=\"MAP * ~NOTFOUND\" --no-proxy-server"
        " --disable-background-networking --disable-component-update --disable-domain-reliability"
        " --disable-sync --no-pings --no-first-run --disable-breakpad --log-level=3";
    // Chromium refuses to run its sandbox as root.
    if (geteuid() == 0) flags += " --no-sandbox";
    return flags;
}

QString CharsetName(int codePage) {
    switch (codePage) {
    case 932: return QStringLiteral("Shift_JIS");
    case 936: return QStringLiteral("GBK");
    case 949: return QStringLiteral("EUC-KR");
    case 950: return QStringLiteral("Big5");
    default: return QStringLiteral("windows-%1").arg(codePage);
    }
}

void DisableActiveContent(QWebEngineSettings& settings) {
    using Settings = QWebEngineSettings;
    for (const auto attribute : {Settings::JavascriptEnabled,
                                 Settings::JavascriptCanOpenWindows,
                                 Settings::JavascriptCanAccessClipboard,
                                 Settings::JavascriptCanPaste,
                                 Settings::LocalStorageEnabled,
                                 Settings::LocalContentCanAccessRemoteUrls,
                                 Settings::HyperlinkAuditingEnabled,
                                 Settings::ErrorPageEnabled,
                                 Settings::PluginsEnabled,
                                 Settings::FullScreenSupportEnabled,
                                 Settings::ScreenCaptureEnabled,
                                 Settings::WebGLEnabled,
                                 Settings::Accelerated2dCanvasEnabled,
                                 Settings::AutoLoadIconsForPage,
                                 Settings::TouchIconsEnabled,
                                 Settings::FocusOnNavigationEnabled,
                                 Settings::AllowRunningInsecureContent,
                                 Settings::AllowWindowActivationFromJavaScript,
                                 Settings::DnsPrefetchEnabled,
                                 Settings::PdfViewerEnabled,
                                 Settings::NavigateOnDropEnabled})
        settings.setAttribute(attribute, false);
    for (const auto attribute :
         {Settings::LocalContentCanAccessFileUrls, Settings::PlaybackRequiresUserGesture,
          Settings::WebRTCPublicInterfacesOnly})
        settings.setAttribute(attribute, true);
    settings.setAttribute(Settings::PrintElementBackgrounds,
                          false); // backgrounds are for the screen
    // The strict policy drops such links before `ReaderPage` sees them, which rejects all
    // navigation.
    settings.setUnknownUrlSchemePolicy(Settings::AllowUnknownUrlSchemesFromUserInteraction);
}
} // namespace

std::unique_ptr<QWebEngineProfile> CreateEngineProfile(FolderGuard& guard, int ansiCodePage) {
    const EngineLogFilter filter;
    // Software rendering: enough for a page of text, two to four times as fast to start where the
    // OpenGL driver is a software one, and no driver can crash the program.
    QQuickWindow::setSceneGraphBackend(QStringLiteral("software"));
    const ScopedVariable backend("QT_QUICK_BACKEND", "software");
    const ScopedVariable flags("QTWEBENGINE_CHROMIUM_FLAGS", EngineFlags());
    // Enables the accessibility tree of pages, which is built only while a screen reader runs.
    const ScopedVariable accessibility("QTWEBENGINE_ENABLE_LINUX_ACCESSIBILITY", "1");
    RegisterPageScheme();
    auto profile = std::make_unique<QWebEngineProfile>(); // without a name: off the record
    profile->setUrlRequestInterceptor(&guard);
    profile->setSpellCheckEnabled(false);
    QWebEngineSettings& settings = *profile->settings();
    DisableActiveContent(settings);
    settings.setDefaultTextEncoding(CharsetName(ansiCodePage));
    return profile;
}
