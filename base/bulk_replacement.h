#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include "base/file_error.h"

namespace pondera {

/// Gives thousands of files in a folder other bytes, one after the other, at about the cost of writing them: a new file
/// for each, renamed over the old one, costs a file system more than twice that. Each file is written where it is, and
/// keeps what else belongs to it (permissions, owner). Its old bytes stand in one backup file of the folder meanwhile,
/// from which undo_interrupted_replacement brings them back when the program ends in the middle of a file. A write that
/// fails (full disk) is undone at once. Nothing waits for the disk: a power cut in the seconds after it may leave a
/// file in parts old and new.
class BulkReplacement {
  public:
    explicit BulkReplacement(const QString& folder);

    /// Removes the backup.
    ~BulkReplacement();
    BulkReplacement(const BulkReplacement&) = delete;
    BulkReplacement& operator=(const BulkReplacement&) = delete;

    /// Writes `bytes` over `old_bytes`, which are what the file holds. Fails with 70 for a file that its owner may not
    /// write, whoever asks.
    [[nodiscard]] FileResult<void> replace(const QString& path, const QByteArray& old_bytes, const QByteArray& bytes);

  private:
    [[nodiscard]] FileResult<void> back_up(const QString& path, const QByteArray& bytes);

    QFile backup_;
    int number_ = 0;
};

/// Gives the file of a folder that a replacement was writing when the program ended its old bytes back, and removes the
/// backup. Without a backup it does nothing.
void undo_interrupted_replacement(const QString& folder);

}  // namespace pondera
