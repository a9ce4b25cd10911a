#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

namespace pondera {

/// Watches a folder for files that come and go, whoever makes or removes them. Changes that follow each other closely
/// are told of once.
class FolderWatch : public QObject {
    Q_OBJECT

  public:
    explicit FolderWatch(QObject* parent);

    /// Watches another folder from now on; an empty path: none.
    void watch(const QString& folder);

  signals:
    void changed();

  private:
    QFileSystemWatcher watcher_;
    QTimer pause_;
};

}  // namespace pondera
