#pragma once

#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;

namespace pondera {

/// Shows work while it runs: what is being done, the command at work, a bar, the count in words and the time left, and
/// the Stop button.
class TransferView : public QWidget {
    Q_OBJECT

  public:
    explicit TransferView(QWidget* parent = nullptr);

    void show_stage(const QString& text);      ///< `Prog_Etichetta`
    void show_command(const QString& text);    ///< `lblProgress`
    void show_steps(qint64 done, qint64 all);  ///< `all` 0: nobody knows how much it is
    void show_count(const QString& count, const QString& time_left);
    /// Whether something runs that can be stopped. Beginning clears what was shown; at the end bar and count stay.
    void set_running(bool running);

  signals:
    void Stopped();

  private:
    QLabel* stage_;
    QLabel* command_;
    QProgressBar* bar_;
    QLabel* count_;
    QLabel* time_left_;
    QPushButton* stop_;
};

}  // namespace pondera
