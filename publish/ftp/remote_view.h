#pragma once

#include <QGroupBox>

class QLabel;
class QListWidget;

namespace pondera {

/// Shows a folder of the server, `Remoto`, with what can be done there.
class RemoteView : public QGroupBox {
    Q_OBJECT

  public:
    explicit RemoteView(QWidget* parent = nullptr);

    void show_names(const QString& folder, const QStringList& names);

  signals:
    void RefreshAsked();
    void FileAsked();
    void EmptyingAsked();

  private:
    QLabel* folder_;
    QListWidget* names_;
};

}  // namespace pondera
