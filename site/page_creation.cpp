#include <QDir>

#include <algorithm>
#include <tuple>

#include "base/files.h"
#include "base/roots.h"
#include "base/text.h"
#include "base/text_file.h"
#include "site/card_page.h"
#include "site/group_arrows.h"
#include "site/interface_models.h"
#include "site/page_files.h"
#include "site/page_group.h"
#include "site/page_name.h"
#include "site/page_operations.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr int kFollowingPageCard = 1;

/// The published name, as it is spelled on disk, of the page that has the name in any case; empty when there is none.
QString page_of_name(const QString& website_folder, const QString& page) {
    const QStringList files = QDir(website_folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System);
    const auto used = std::ranges::find_if(
        files, [&](const QString& file) { return published_name(file).compare(page, Qt::CaseInsensitive) == 0; });
    return used == files.end() ? QString() : published_name(*used);
}

/// Several files that are to be written together: when one fails, those before it get their old bytes back, and those
/// that were not there go.
class WrittenTogether {
  public:
    FileResult<void> write(const QString& path, const QByteArray& bytes) {
        Before before{path, QFileInfo::exists(path), {}};
        if (before.existed) {
            const auto old = read_file(path);
            if (!old) return std::unexpected(old.error());
            before.bytes = *old;
        }
        const auto written = before.existed ? replace_file(path, bytes) : write_file(path, bytes);
        if (written) before_ += before;
        return written;
    }

    void take_back() {
        for (const Before& before : before_)
            if (before.existed)
                std::ignore = replace_file(before.path, before.bytes);
            else
                std::ignore = remove_file(before.path);
        before_.clear();
    }

  private:
    struct Before {
        QString path;
        bool existed = false;
        QByteArray bytes;
    };
    QList<Before> before_;
};

FileResult<void> write_new_page(WrittenTogether& files, const QString& website_folder, const QString& page,
                                const QString& previous) {
    const QDir folder(website_folder);
    const auto card = read_text_file(folder.filePath(card_file_name(kFollowingPageCard)));
    if (!card) return std::unexpected(card.error());
    const QString first = first_page_of_group(page);
    const QString heading = is_home_page(first) ? folder.dirName() : strip_tutto(first);
    const QString text =
        with_arrow(page_from_card(card->text, {.title = own_title(website_folder, page), .heading = heading}),
                   GroupArrow::kPrevious, previous);
    const auto copy = files.write(folder.filePath(editing_copy_name(page)), encode_text(text, card->encoding));
    if (!copy) return copy;
    return files.write(folder.filePath(page), encode_text(without(text, u"§ç"), card->encoding));
}

FileResult<void> write_next_arrow(WrittenTogether& files, const QString& website_folder, const QString& page,
                                  const QString& next) {
    for (const QString& path : files_of_page(website_folder, page)) {
        const auto file = read_text_file(path);
        if (!file) return std::unexpected(file.error());
        const QString text = with_arrow(file->text, GroupArrow::kNext, next);
        if (auto written = files.write(path, encode_text(text, file->encoding)); !written) return written;
    }
    return {};
}

/// Copies the arrows' pictures into the Website as far as they are missing there.
FileResult<void> copy_arrow_pictures(const Roots& roots, const QString& website_folder) {
    const QDir from(QDir(roots.system_folder()).filePath(u"media/img"_s));
    const QDir to(QDir(website_folder).filePath(u"media/img"_s));
    if (auto folder = create_folders(to.path()); !folder) return folder;
    for (const GroupArrow arrow : {GroupArrow::kNext, GroupArrow::kPrevious}) {
        const QString picture = arrow_picture(arrow);
        if (to.exists(picture)) continue;
        if (auto copied = copy_file(from.filePath(picture), to.filePath(picture), IfExists::kFail); !copied)
            return copied;
    }
    return {};
}

}  // namespace

QString page_creation_message(const FileError& error) {
    switch (error.number) {
        case FaultNumber::kAlreadyExists:
            return u"The name for the new page is already in use!"_s;
        case FaultNumber::kPermissionDenied:
            return u"Disk protected. Read only! impossible to create the file!"_s;
        default:
            return u"Error occurred while creating. code:"_s + number_text(error.number);
    }
}

QString refusal_of_used_name(const QString& website_folder, PageKind kind, const QString& name) {
    if (page_of_name(website_folder, page_file_name(kind, name)).isEmpty()) return {};
    return u"Page name already in use. Change Page name."_s;
}

std::expected<QString, QString> create_page(const NewPage& page) {
    const QDir folder(page.website_folder);
    const QString published = page_file_name(page.kind, page.name);
    if (!page_of_name(page.website_folder, published).isEmpty())
        return std::unexpected(page_creation_message({FaultNumber::kAlreadyExists, published, {}}));
    const auto card = read_text_file(folder.filePath(card_file_name(page.card)));
    if (!card) return std::unexpected(page_creation_message(card.error()));
    const QString text = page_from_card(
        card->text, {.title = page.name, .heading = page.name, .photo_show = page.kind == PageKind::kPhotoShow});
    const auto written = write_text_file(folder.filePath(editing_copy_name(published)), text, card->encoding);
    if (!written) return std::unexpected(page_creation_message(written.error()));
    return published;
}

std::expected<AddedPage, QString> add_following_page(const Roots& roots, const QString& website_folder,
                                                     const QString& current) {
    if (files_of_page(website_folder, current).isEmpty())
        return std::unexpected(page_creation_message({FaultNumber::kPathNotFound, current, {}}));
    AddedPage added;
    added.page = page_of_name(website_folder, following_page_name(current));
    const bool there = !added.page.isEmpty();
    if (!there) added.page = following_page_name(current);

    WrittenTogether files;
    FileResult<void> written;
    if (!there) written = write_new_page(files, website_folder, added.page, current);
    if (written) written = write_next_arrow(files, website_folder, current, added.page);
    if (!written) {
        files.take_back();
        return std::unexpected(page_creation_message(written.error()));
    }
    if (there) added.message = u"The page that follows was there already. The arrow leads to it again."_s;
    if (!copy_arrow_pictures(roots, website_folder))
        added.message = u"The pictures of the arrows could not be copied."_s;
    return added;
}

bool has_next_arrow(const QString& page_text) {
    return has_arrow(page_text, GroupArrow::kNext);
}

}  // namespace pondera
