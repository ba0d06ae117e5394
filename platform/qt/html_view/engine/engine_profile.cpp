#include "platform/qt/html_view/engine/engine_profile.h"

#include "platform/qt/html_view/engine/folder_guard.h"

#include <QLoggingCategory>
#include <QQuickWindow>
#include <QWebEngineSettings>

#include <unistd.h>

namespace {
// A variable of the environment with another value for a while, so that no program started later
// inherits it.
class VariableScope {
  public:
    VariableScope(const char* name, const QByteArray& value) : name_(name), before_(qgetenv(name)) {
        wasSet_ = qEnvironmentVariableIsSet(name);
        qputenv(name, value);
    }
    ~VariableScope() {
        if (wasSet_)
            qputenv(name_, before_);
        else
            qunsetenv(name_);
    }
    VariableScope(const VariableScope&) = delete;
    VariableScope& operator=(const VariableScope&) = delete;

  private:
    const char* name_;
    QByteArray before_;
    bool wasSet_;
};

// The engine tells of every start, of the sandbox that root does without, and, as a warning, that
// it found no graphics driver, which nobody asked it to use.
class QuietStart {
  public:
    QuietStart() {
        QLoggingCategory::setFilterRules(
            QStringLiteral("qt.webenginecontext*=false\ndefault.warning=false"));
    }
    ~QuietStart() { QLoggingCategory::setFilterRules({}); }
    QuietStart(const QuietStart&) = delete;
    QuietStart& operator=(const QuietStart&) = delete;
};

QByteArray EngineFlags() {
    QByteArray flags = qgetenv("QTWEBENGINE_CHROMIUM_FLAGS");
    // No name is ever looked up and no address reached, whatever a page makes the engine wish for.
    flags +=
        " --host-resolver-rules=\"MAP * ~NOTFOUND\" --no-proxy-server"
        " --disable-background-networking --disable-component-update --disable-domain-reliability"
        " --disable-sync --no-pings --no-first-run --disable-breakpad --log-level=3";
    // The engine's sandbox cannot be had by root; for all others it stays on.
    if (geteuid() == 0) flags += " --no-sandbox";
    return flags;
}

QString CharsetOf(int codePage) {
    switch (codePage) {
    case 932: return QStringLiteral("Shift_JIS");
    case 936: return QStringLiteral("GBK");
    case 949: return QStringLiteral("EUC-KR");
    case 950: return QStringLiteral("Big5");
    default: return QStringLiteral("windows-%1").arg(codePage);
    }
}

void MakePassive(QWebEngineSettings& settings) {
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
    settings.setAttribute(Settings::PrintElementBackgrounds, false); // they are of the screen
    // The strict one drops such a link before `ReaderPage` is asked, which lets none pass.
    settings.setUnknownUrlSchemePolicy(Settings::AllowUnknownUrlSchemesFromUserInteraction);
}
} // namespace

std::unique_ptr<QWebEngineProfile> MakeEngineProfile(FolderGuard& guard, int ansiCodePage) {
    const QuietStart quiet;
    // Drawn by the processor: a page of text needs no more, comes up two to four times as soon
    // where the graphics driver is one in software, and no driver can take the program with it.
    QQuickWindow::setSceneGraphBackend(QStringLiteral("software"));
    const VariableScope backend("QT_QUICK_BACKEND", "software");
    const VariableScope flags("QTWEBENGINE_CHROMIUM_FLAGS", EngineFlags());
    // Else the engine tells screen readers nothing of a page. It does so only while there are any.
    const VariableScope accessibility("QTWEBENGINE_ENABLE_LINUX_ACCESSIBILITY", "1");
    auto profile = std::make_unique<QWebEngineProfile>(); // without a name: off the record
    profile->setUrlRequestInterceptor(&guard);
    profile->setSpellCheckEnabled(false);
    QWebEngineSettings& settings = *profile->settings();
    MakePassive(settings);
    settings.setDefaultTextEncoding(CharsetOf(ansiCodePage));
    return profile;
}
