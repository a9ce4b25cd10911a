#pragma once

#include <QJsonArray>
#include <QJsonValue>
#include <QUrl>
#include <QWebEnginePage>

#include <functional>

namespace pondera {

/// The engine's page behind the editing control: page scripts are off, our editing script runs in a world of its own,
/// nothing that the person does leads away from the document, and questions to the script are answered before the call
/// returns.
class ScriptPage : public QWebEnginePage {
    Q_OBJECT

  public:
    explicit ScriptPage(QObject* parent);

    /// Starts an empty quirks-mode document whose relative addresses are resolved in `folder` (ending in "/"), with the
    /// editing script in it. False when the engine did not answer in time.
    bool start(const QUrl& folder);

    /// False after the engine's process has gone, until start() has made a new one.
    [[nodiscard]] bool alive() const { return alive_; }

    /// Counts the document as gone, so that it is made anew.
    void forget() { alive_ = false; }

    /// Calls a function of the editing script ("history.undo") and waits for its result, with the person's input held
    /// back meanwhile; null when the engine's process has gone.
    QJsonValue call(const QString& function, const QJsonArray& arguments = {});

    /// As call, but gives the result later, from the event loop.
    void call_later(const QString& function, const std::function<void(const QJsonValue&)>& then);

  signals:
    void stateTold();   ///< selection or statuses may be others
    void changeTold();  ///< the document was changed
    void pasteAsked();

  protected:
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& message, int line,
                                  const QString& source) override;
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool is_main_frame) override;

  private:
    QJsonValue wait_for(const QString& code);

    bool load_empty(const QUrl& folder);

    bool starting_ = false;
    bool alive_ = false;
};

}  // namespace pondera
