#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QHash>
#include <QSet>
#include <QString>

#include <memory>

#include "base/file_error.h"
#include "publish/sending/destination.h"

namespace pondera {

/// A published file as it was sent: its path in the Website ("media/img/Sea.jpg"), and what its bytes were.
struct PublishedFile {
    QString path;
    qint64 size = 0;      ///< in bytes
    QDateTime modified;   ///< of the Website's file, UTC
    QByteArray checksum;  ///< SHA-256 of the bytes sent, lower-case hexadecimal

    friend bool operator==(const PublishedFile&, const PublishedFile&) = default;
};

/// The publishing record of a Website for one destination: what that destination is known to hold, because it confirmed
/// it. The records of all destinations stand in the Website's "§_elenco.pnd". While a publication runs every step is
/// written to "§_elencotemp.pnd" at once, so that whatever becomes of the program, nothing that was confirmed is sent
/// again and nothing that was not counts as sent; the next opening takes it in. One record of a Website is open at a
/// time.
class PublicationRecord {
  public:
    /// Reads the record of a Website for `destination`; one that is missing or damaged counts as empty, line by line.
    /// Fails when a file of it is there and cannot be read, or what was interrupted cannot be taken in.
    [[nodiscard]] static FileResult<PublicationRecord> open(const QString& website_folder,
                                                            const Destination& destination);
    PublicationRecord(PublicationRecord&&) noexcept;
    PublicationRecord& operator=(PublicationRecord&&) noexcept;
    ~PublicationRecord();

    /// What the destination is known to hold, by path.
    [[nodiscard]] const QHash<QString, PublishedFile>& files() const { return files_; }

    /// The files whose sending began and was never confirmed: the destination may hold the old one, the new one, or
    /// what a broken upload left.
    [[nodiscard]] const QSet<QString>& unfinished() const { return unfinished_; }

    /// The file of that path is about to be sent.
    [[nodiscard]] FileResult<void> begin(const QString& path);

    /// The destination has confirmed this file.
    [[nodiscard]] FileResult<void> confirm(const PublishedFile& file);

    /// The destination does not have this file any more.
    [[nodiscard]] FileResult<void> forget(const QString& path);

    /// Brings what was confirmed into "§_elenco.pnd", whole or not at all, and removes "§_elencotemp.pnd".
    [[nodiscard]] FileResult<void> close();

    /// Whether a publication to any destination was interrupted: "§_elencotemp.pnd" is there.
    [[nodiscard]] static bool was_interrupted(const QString& website_folder);

  private:
    class Journal;
    PublicationRecord(QString website_folder, Destination destination);
    [[nodiscard]] FileResult<void> write(const QByteArray& line);

    QString folder_;
    Destination destination_;
    QHash<QString, PublishedFile> files_;
    QSet<QString> unfinished_;
    std::unique_ptr<Journal> journal_;
};

}  // namespace pondera
