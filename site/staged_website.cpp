#include "site/staged_website.h"

#include <QDir>
#include <QUuid>

#include <filesystem>
#include <utility>

#include "base/files.h"
#include "base/roots.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

FileResult<void> move_folder(const QString& from, const QString& to) {
    std::error_code error;
    std::filesystem::rename(QFileInfo(from).filesystemFilePath(), QFileInfo(to).filesystemFilePath(), error);
    if (error) return std::unexpected(file_error_of(error, to));
    return {};
}

}  // namespace

FileResult<StagedWebsite> StagedWebsite::begin(const Roots& roots) {
    if (auto root = create_folders(roots.websites()); !root) return std::unexpected(root.error());
    const QString id = QUuid::createUuid().toString(QUuid::Id128).first(8);
    const QString workshop = roots.website(u"_new_"_s + id);
    if (auto made = create_folder(workshop); !made) return std::unexpected(made.error());
    StagedWebsite staged(workshop);
    if (auto made = create_folder(staged.folder()); !made) return std::unexpected(made.error());
    return staged;
}

StagedWebsite::StagedWebsite(StagedWebsite&& other) noexcept : workshop_(std::exchange(other.workshop_, {})) {
}

StagedWebsite::~StagedWebsite() {
    if (!workshop_.isEmpty()) QDir(workshop_).removeRecursively();
}

QString StagedWebsite::folder() const {
    return QDir(workshop_).filePath(u"website"_s);
}

FileResult<void> StagedWebsite::take_place(const QString& website) {
    const QFileInfo present(website);
    const bool replaces = present.exists() || present.isSymLink();
    const QString aside = QDir(workshop_).filePath(u"before"_s);
    if (replaces)
        if (auto moved = move_folder(website, aside); !moved) return moved;
    auto moved = move_folder(folder(), website);
    // What cannot go back stays where it is rather than being deleted.
    if (!moved && replaces && !move_folder(aside, website)) workshop_.clear();
    return moved;
}

}  // namespace pondera
