#pragma once

#include <QMap>
#include <QSet>

#include "publish/sending/publication_record.h"

namespace pondera {

/// What a publishing record knows of one destination.
struct DestinationState {
    QHash<QString, PublishedFile> files;
    QSet<QString> unfinished;
};

/// By the destinations' keys.
using DestinationStates = QMap<QString, DestinationState>;

/// The lines of a publishing record and of its journal, each with its line end. A line begins with a check sum of
/// itself and of its destination, so that no damaged line counts, and none under the wrong destination: "to KEY",
/// "file SIZE TIME CHECKSUM PATH", "begun PATH", "gone PATH".
[[nodiscard]] QByteArray destination_line(const QString& key);
[[nodiscard]] QByteArray file_line(const QString& key, const PublishedFile& file);
[[nodiscard]] QByteArray begun_line(const QString& key, const QString& path);
[[nodiscard]] QByteArray gone_line(const QString& key, const QString& path);

/// Takes in the lines of a record or journal, one after the other; damaged ones are skipped.
void take_in(const QByteArray& lines, DestinationStates& states);

/// The record of these states.
[[nodiscard]] QByteArray lines_of(const DestinationStates& states);

}  // namespace pondera
