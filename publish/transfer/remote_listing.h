#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

namespace pondera {

/// One entry of a remote folder.
struct RemoteEntry {
    QString name{};
    bool folder = false;
    qint64 size = -1;        ///< in bytes; -1 when the server does not say
    QByteArray wire_name{};  ///< the name's bytes as the server sent them: commands must send these again

    friend bool operator==(const RemoteEntry&, const RemoteEntry&) = default;
};

/// A remote folder's listing: the reply as the server sent it, and what could be read from it.
struct RemoteListing {
    QString text;  ///< the raw lines, with their line ends
    QList<RemoteEntry> entries;
};

/// Reads a listing as Unix, Windows and machine (MLSD) servers send it; each line is told by its own look. Lines that
/// are no entry, "." and "..", links, temporary files of our own uploads and names that are not plain
/// (`is_plain_name`) are left out of the entries. Names are UTF-8, or windows-1252 where they are not valid UTF-8.
[[nodiscard]] RemoteListing parse_listing(const QByteArray& bytes);

}  // namespace pondera
