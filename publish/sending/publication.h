#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

#include "base/steps.h"
#include "publish/sending/publication_record.h"

namespace pondera {

class Roots;

enum class PublicationMode {
    kTotal,    ///< the whole Website, staged in "FTP_TOTAL"
    kPartial,  ///< what changed since the last publication to that destination, staged in "FTP"
};

/// What a destination holds of a Website at this moment: paths relative to the Website's folder there, with their sizes
/// (-1 where the server does not say). Only folders that were listed count; the Website's own folder is "".
struct RemoteFiles {
    QHash<QString, qint64> sizes{};
    QStringList listed_folders{};
    QStringList folders{};  ///< those that are there, as far as the listings tell
};

/// What a publication does, in its order.
struct PublicationPlan {
    QList<PublishedFile>
        send;            ///< media first, then documents, then pages (one after those it shows), the home page last
    QStringList remove;  ///< were published once, and are not in the Website any more

    [[nodiscard]] qint64 bytes() const;
};

/// A file that the destination refused, and why: in a server's own words, or in words for the person.
struct RefusedFile {
    QString path;
    QString reply;
};

/// What a Website would publish now, in the order in which it is sent.
struct WebsiteSurvey {
    QList<PublishedFile> files;
    bool cancelled = false;
};

/// The published files of a Website with the size and checksum of what visitors will get (`prepared_file`). Takes as
/// long as reading them.
[[nodiscard]] FileResult<WebsiteSurvey> survey_website(const Roots& roots, const QString& website,
                                                       const Steps& steps = {});

/// The bytes that visitors get for a file of a Website: a page by `prepared_page`, any other file as it is.
[[nodiscard]] FileResult<QByteArray> prepared_file(const Roots& roots, const QString& website, const QString& path);

/// What has to be done so that the destination holds the surveyed files. A total publication sends all; a partial one
/// those that differ from the record, those whose sending was interrupted, and those that are recorded but missing
/// there, or there in another size. What was recorded, lies there as recorded and is not in the Website any more is
/// removed when `remove_deleted`.
[[nodiscard]] PublicationPlan plan_publication(const WebsiteSurvey& survey, PublicationMode mode,
                                               const PublicationRecord& record, const RemoteFiles& remote,
                                               bool remove_deleted);

/// Copies a surveyed file as its visitors get it to `target`, which must not exist, and waits for no disk. False when
/// cancelled. Fails when it is not any longer what was surveyed. Whatever goes wrong, `target` is not there afterwards.
[[nodiscard]] FileResult<bool> copy_prepared(const Roots& roots, const QString& website, const PublishedFile& file,
                                             const QString& target, const std::function<bool()>& go_on);

/// The folder of a mode's staging for a Website: "FTP/NAME" or "FTP_TOTAL/NAME" below the Websites root.
[[nodiscard]] QString staging_folder(const Roots& roots, const QString& website, PublicationMode mode);

/// Makes the two staging folders as far as they are missing.
[[nodiscard]] FileResult<void> make_staging_folders(const Roots& roots);

/// Fills a Website's staging folder with the files of `plan`, prepared for visitors, and nothing else; what an earlier
/// publication left there goes first. False when cancelled. Fails when a file changed since the survey. Unless all is
/// staged, nothing is.
[[nodiscard]] FileResult<bool> stage(const Roots& roots, const QString& website, PublicationMode mode,
                                     const PublicationPlan& plan, const Steps& steps = {});

/// Removes a Website's staged files.
void clear_staging(const Roots& roots, const QString& website, PublicationMode mode);

}  // namespace pondera
