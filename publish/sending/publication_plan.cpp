#include <QSet>

#include <algorithm>
#include <numeric>

#include "publish/sending/publication.h"

namespace pondera {
namespace {

/// Whether the destination already holds this file.
bool is_there(const PublishedFile& file, const PublicationRecord& record, const RemoteFiles& remote) {
    const auto known = record.files().constFind(file.path);
    if (known == record.files().cend() || record.unfinished().contains(file.path)) return false;
    if (known->size != file.size || known->checksum != file.checksum) return false;
    if (!remote.listed_folders.contains(file.path.section(u'/', 0, -2))) return true;
    const auto listed = remote.sizes.constFind(file.path);
    return listed != remote.sizes.cend() && (*listed < 0 || *listed == file.size);
}

/// Whether a file that the Website has no more lies at the destination as this program brought it there.
bool lies_as_sent(const QString& path, const PublicationRecord& record, const RemoteFiles& remote) {
    const auto listed = remote.sizes.constFind(path);
    if (listed == remote.sizes.cend()) return false;
    return *listed < 0 || record.unfinished().contains(path) || *listed == record.files().value(path).size;
}

}  // namespace

qint64 PublicationPlan::bytes() const {
    return std::accumulate(send.cbegin(), send.cend(), qint64(0),
                           [](qint64 sum, const PublishedFile& file) { return sum + file.size; });
}

PublicationPlan plan_publication(const WebsiteSurvey& survey, PublicationMode mode, const PublicationRecord& record,
                                 const RemoteFiles& remote, bool remove_deleted) {
    PublicationPlan plan;
    QSet<QString> present;
    for (const PublishedFile& file : survey.files) {
        present.insert(file.path);
        if (mode == PublicationMode::kTotal || !is_there(file, record, remote)) plan.send << file;
    }
    if (!remove_deleted) return plan;
    const QList<QString> recorded = record.files().keys();
    const QSet<QString> sent = QSet<QString>(recorded.cbegin(), recorded.cend()) + record.unfinished();
    for (const QString& path : sent - present)
        if (lies_as_sent(path, record, remote)) plan.remove << path;
    // A page goes before what it shows.
    std::ranges::sort(plan.remove);
    std::ranges::stable_partition(plan.remove, [](const QString& path) { return !path.contains(u'/'); });
    return plan;
}

}  // namespace pondera
