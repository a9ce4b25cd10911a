#pragma once

#include <QGroupBox>

#include "publish/transfer/transfer_outcome.h"

class QLabel;
class QPlainTextEdit;

namespace pondera {

/// Shows how a connection is: the status box `Info`, whether the line is protected, and a hint in plain words.
class ConnectionView : public QGroupBox {
    Q_OBJECT

  public:
    enum class Tone { kPlain, kGood, kBad };

    explicit ConnectionView(QWidget* parent = nullptr);

    void show_status(const QString& status);
    void show_protection(const LineProtection& protection);
    /// Without a connection there is nothing to protect.
    void show_no_connection();
    void show_hint(const QString& text, Tone tone = Tone::kPlain);

  private:
    void show_line(const QString& sign, const QString& words, bool bad);

    QPlainTextEdit* info_;
    QLabel* padlock_;
    QLabel* protection_;
    QLabel* sign_;
    QLabel* hint_;
};

}  // namespace pondera
