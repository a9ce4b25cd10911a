#include "shell/editing/script_page.h"

#include <QAbstractEventDispatcher>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QJsonDocument>
#include <QPointer>
#include <QTimer>
#include <QUuid>
#include <QWebEngineScript>
#include <QWebEngineSettings>

#include <chrono>
#include <memory>
#include <optional>

// The resources lie in a static library, which the linker leaves out unless they are asked for.
static void initialise_resources() {
    Q_INIT_RESOURCE(editing);
}

namespace pondera {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kWorld = QWebEngineScript::ApplicationWorld;
constexpr auto kLongestWait = 60s;

QString editing_script() {
    initialise_resources();
    // Tells markup that was copied here from what other programs put on the clipboard; the same for all pages of this
    // start.
    static const QString key = QUuid::createUuid().toString(QUuid::Id128);
    QString script = u"(() => {\nconst ponderaKey = \"%1\";\n"_s.arg(key);
    const QDir folder(u":/editing"_s);
    for (const QString& name : folder.entryList(QDir::Files, QDir::Name)) {
        QFile file(folder.filePath(name));
        if (file.open(QIODevice::ReadOnly)) script += QString::fromUtf8(file.readAll());
    }
    return script + u"})();"_s;
}

QString call_code(const QString& function, const QJsonArray& arguments) {
    QJsonArray all = arguments;
    all.prepend(function);
    return u"pondera.call(..."_s + QString::fromUtf8(QJsonDocument(all).toJson(QJsonDocument::Compact)) + u")"_s;
}

QJsonValue from_json(const QVariant& json) {
    // A bare value is no JSON document; in an array it is.
    return QJsonDocument::fromJson("[" + json.toString().toUtf8() + "]").array().at(0);
}

}  // namespace

ScriptPage::ScriptPage(QObject* parent) : QWebEnginePage(parent) {
    settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, false);
    settings()->setAttribute(QWebEngineSettings::LocalContentCanAccessFileUrls, true);
    settings()->setAttribute(QWebEngineSettings::PluginsEnabled, false);
    settings()->setAttribute(QWebEngineSettings::FocusOnNavigationEnabled, false);
    connect(this, &QWebEnginePage::renderProcessTerminated, this, [this] { alive_ = false; });
}

bool ScriptPage::start(const QUrl& folder) {
    // The death of an old process can end the first attempt.
    alive_ = load_empty(folder) || load_empty(folder);
    if (alive_) wait_for(editing_script());
    return alive_;
}

bool ScriptPage::load_empty(const QUrl& folder) {
    QEventLoop loop;
    bool loaded = false;
    connect(this, &QWebEnginePage::loadFinished, &loop, [&](bool ok) {
        loaded = ok;
        loop.quit();
    });
    connect(this, &QWebEnginePage::renderProcessTerminated, &loop, &QEventLoop::quit);
    QTimer::singleShot(kLongestWait, &loop, &QEventLoop::quit);
    starting_ = true;
    setHtml(u"<html><head></head><body></body></html>"_s, folder);
    QAbstractEventDispatcher::instance()->wakeUp();
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    starting_ = false;
    return loaded;
}

QJsonValue ScriptPage::call(const QString& function, const QJsonArray& arguments) {
    return wait_for(call_code(function, arguments));
}

void ScriptPage::call_later(const QString& function, const std::function<void(const QJsonValue&)>& then) {
    runJavaScript(call_code(function, {}), kWorld, [then](const QVariant& json) { then(from_json(json)); });
}

QJsonValue ScriptPage::wait_for(const QString& code) {
    if (!alive_) return {};
    QEventLoop loop;
    // The answer may come after the wait was given up, so what it fills outlives this call.
    const auto answer = std::make_shared<std::optional<QVariant>>();
    connect(this, &QWebEnginePage::renderProcessTerminated, &loop, &QEventLoop::quit);
    QTimer::singleShot(kLongestWait, &loop, &QEventLoop::quit);
    const QPointer<QEventLoop> waiting(&loop);
    runJavaScript(code, kWorld, [answer, waiting](const QVariant& json) {
        *answer = json;
        if (waiting) waiting->quit();
    });
    // A question asked from a posted event: those that wait behind it, the engine's among them, are delivered only when
    // the dispatcher is woken.
    QAbstractEventDispatcher::instance()->wakeUp();
    if (!*answer) loop.exec(QEventLoop::ExcludeUserInputEvents);
    const std::optional<QVariant>& given = *answer;
    return given ? from_json(*given) : QJsonValue();
}

void ScriptPage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& message, int line,
                                          const QString& source) {
    if (message == u"pondera:state"_s) {
        emit stateTold();
    } else if (message == u"pondera:changed"_s) {
        emit changeTold();
    } else if (message == u"pondera:paste"_s) {
        emit pasteAsked();
    } else if (level == ErrorMessageLevel && source.isEmpty()) {
        qWarning("editing script, line %d: %s", line, qUtf8Printable(message));
    }
}

bool ScriptPage::acceptNavigationRequest(const QUrl& url, NavigationType type, bool is_main_frame) {
    if (!is_main_frame) return type != NavigationTypeLinkClicked && type != NavigationTypeFormSubmitted;
    return starting_ || url.scheme() == u"data"_s;
}

}  // namespace pondera
