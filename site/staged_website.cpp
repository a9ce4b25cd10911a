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

const QString kMade = u"website"_s;
const QString kBefore = u"before"_s;
const QString kLock = u"in_use"_s;

/// Gives a folder another path; a fault tells of the Website, as the other one means nothing to a person.
FileResult<void> move_folder(const QString& from, const QString& to, const QString& website) {
    std::error_code error;
    std::filesystem::rename(QFileInfo(from).filesystemFilePath(), QFileInfo(to).filesystemFilePath(), error);
    if (error) return std::unexpected(file_error_of(error, website));
    return {};
}

/// Lets the owner of a folder, and of all folders in it, delete what they hold.
void unprotect(const QString& path) {
    QFile::setPermissions(path, QFile::permissions(path) | QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const QDir folder(path);
    for (const QString& inner : folder.entryList(QDir::Dirs | QDir::Hidden | QDir::NoSymLinks | QDir::NoDotAndDotDot))
        unprotect(folder.filePath(inner));
}

/// Removes a folder with all in it, write-protected folders too; what links in it lead to stays.
void remove_folder(const QString& path) {
    unprotect(path);
    QDir(path).removeRecursively();
}

std::unique_ptr<QLockFile> lock_of(const QString& workshop) {
    auto lock = std::make_unique<QLockFile>(QDir(workshop).filePath(kLock));
    lock->setStaleLockTime(0);  // however long it takes: a lock lasts as long as its program
    return lock;
}

/// Removes a workshop; it counts as in use until the Websites in it are gone.
void remove_workshop(const QString& path, QLockFile& in_use) {
    for (const QString& website : {kMade, kBefore}) remove_folder(QDir(path).filePath(website));
    in_use.unlock();
    remove_folder(path);
}

/// Removes the workshops of programs that ended in the middle. One that holds both a new and an old Website may be all
/// that there is of it, so it stays.
void remove_abandoned_workshops(const QDir& websites) {
    for (const QString& name : websites.entryList({u"_new_*"_s}, QDir::Dirs | QDir::NoSymLinks)) {
        const QDir workshop(websites.filePath(name));
        if (!workshop.exists(kLock) || (workshop.exists(kMade) && workshop.exists(kBefore))) continue;
        if (const auto lock = lock_of(workshop.path()); lock->tryLock()) remove_workshop(workshop.path(), *lock);
    }
}

}  // namespace

FileResult<StagedWebsite> StagedWebsite::begin(const Roots& roots) {
    if (auto root = create_folders(roots.websites()); !root) return std::unexpected(root.error());
    remove_abandoned_workshops(QDir(roots.websites()));
    const QString id = QUuid::createUuid().toString(QUuid::Id128).first(8);
    const QString workshop = roots.website(u"_new_"_s + id);
    if (auto made = create_folder(workshop); !made) return std::unexpected(made.error());
    StagedWebsite staged(workshop);
    (void)staged.in_use_->tryLock();
    if (auto made = create_folder(staged.folder()); !made) return std::unexpected(made.error());
    return staged;
}

StagedWebsite::StagedWebsite(QString workshop) : workshop_(std::move(workshop)), in_use_(lock_of(workshop_)) {
}

StagedWebsite::StagedWebsite(StagedWebsite&& other) noexcept
    : workshop_(std::exchange(other.workshop_, {})), in_use_(std::move(other.in_use_)) {
}

StagedWebsite::~StagedWebsite() {
    if (!workshop_.isEmpty()) remove_workshop(workshop_, *in_use_);
}

QString StagedWebsite::folder() const {
    return QDir(workshop_).filePath(kMade);
}

FileResult<void> StagedWebsite::take_place(const QString& website) {
    const QFileInfo present(website);
    const bool replaces = present.exists() || present.isSymLink();
    const QString aside = QDir(workshop_).filePath(kBefore);
    if (replaces)
        if (auto moved = move_folder(website, aside, website); !moved) return moved;
    auto moved = move_folder(folder(), website, website);
    // What cannot go back stays where it is rather than being deleted.
    if (!moved && replaces && !move_folder(aside, website, website)) workshop_.clear();
    return moved;
}

}  // namespace pondera
