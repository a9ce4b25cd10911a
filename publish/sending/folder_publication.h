#pragma once

#include "publish/sending/publication.h"

namespace pondera {

class Roots;

/// What a publication to a folder did.
struct FolderPublication {
    int files = 0;  ///< written
    int removed = 0;
    qint64 bytes = 0;
    QList<RefusedFile> refused{};  ///< all others are in order
    bool cancelled = false;
};

/// When a file gets its name in the folder.
enum class PlaceFile {
    kOnceOnDisk,  ///< when the disk has it: a stick that is pulled out never holds a damaged page
    kAtOnce,      ///< many times faster, for a folder that is made anew when the power fails
};

/// The message why `folder` cannot take a Website (missing, not writable, among the Websites or such that they would
/// lie in what is published); empty when it can.
[[nodiscard]] QString refusal_of_folder(const Roots& roots, const QString& website, const QString& folder);

/// Publishes a Website into `folder`/NAME of a drive or a mounted share, by the rules of a publication to a server:
/// what is there as recorded is left alone, each file is replaced whole or not at all, the home page comes last, an
/// interrupted publication goes on where it stopped, and a file whose name the drive does not take stops no other.
[[nodiscard]] FileResult<FolderPublication> publish_to_folder(const Roots& roots, const QString& website,
                                                              const QString& folder, PublicationMode mode,
                                                              bool remove_deleted, const Steps& steps = {},
                                                              PlaceFile place_file = PlaceFile::kOnceOnDisk);

}  // namespace pondera
