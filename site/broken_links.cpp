#include "site/broken_links.h"

#include <QDir>
#include <QDirIterator>
#include <QHash>
#include <QSet>

#include "base/character_references.h"
#include "base/tag_walk.h"
#include "base/text_file.h"
#include "site/page_name.h"
#include "site/website_listing.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

const QString kNotRead = u"The page cannot be read, so its links were not checked. "_s;

/// A file of the Website with the addresses in it.
struct ReadFile {
    QString name;
    QList<PageReference> references;
};

QSet<QString> anchors_in(const QString& text) {
    QSet<QString> anchors;
    TagWalk walk(text);
    while (const auto tag = walk.next()) {
        if (tag->name.startsWith(u'/')) continue;
        AttributeScan attributes(text, tag->begin + 1 + tag->name.size());
        while (const auto place = attributes.next()) {
            const QStringView name = QStringView(text).sliced(place->name_begin, place->name_end - place->name_begin);
            const bool names_place = name.compare(u"id", Qt::CaseInsensitive) == 0 ||
                                     (tag->name == u"A" && name.compare(u"name", Qt::CaseInsensitive) == 0);
            if (!names_place) continue;
            const auto value = QStringView(text).sliced(place->value_begin, place->value_end - place->value_begin);
            anchors.insert(resolve_character_references(value));
        }
    }
    return anchors;
}

class LinkWalk {
  public:
    explicit LinkWalk(const QString& website_folder) : folder_(website_folder), website_(folder_.dirName()) {
        list_files();
    }

    LinkCheck run(const Steps& steps) {
        const QStringList pages = list_pages(folder_.path());
        for (const QString& page : pages) {
            if (!go_on(steps, check_.pages, static_cast<int>(pages.size()))) {
                check_.whole = false;
                return std::move(check_);
            }
            read_page(page);
        }
        for (const QString& script : {u"media/img/menu_items.js"_s, u"media/img/menuitem.js"_s}) {
            if (const auto text = read_text_file(folder_.filePath(script)))
                read_.append({script, script_references(text->text)});
        }
        for (const ReadFile& file : read_) follow(file);
        return std::move(check_);
    }

  private:
    void list_files() {
        QDirIterator entries(folder_.path(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                             QDirIterator::Subdirectories);
        while (entries.hasNext()) {
            const QString name = folder_.relativeFilePath(entries.next());
            by_lower_name_.insert(name.toLower(), name);
            entries_.insert(name);
        }
    }

    void read_page(const QString& page) {
        const QString copy = folder_.filePath(editing_copy_name(page));
        const auto text = read_text_file(QFileInfo::exists(copy) ? copy : folder_.filePath(page));
        if (!text) {
            check_.broken.append({page, ReferenceKind::kLink, {}, 0, kNotRead + fault_sentence(text.error())});
            return;
        }
        ++check_.pages;
        anchors_.insert(page, anchors_in(text->text));
        read_.append({page, page_references(text->text)});
    }

    void follow(const ReadFile& file) {
        QHash<QString, int> times;
        for (const PageReference& reference : file.references) {
            const int number = times[reference.address]++;
            const AddressTarget target = resolve_address(reference.address, website_);
            if (target.place == AddressTarget::Place::kNowhere || target.place == AddressTarget::Place::kWeb) continue;
            ++check_.addresses;
            const QString reason = fault_of(target, file.name);
            if (!reason.isEmpty()) check_.broken.append({file.name, reference.kind, reference.address, number, reason});
        }
    }

    /// Why a visitor does not get there; empty when they do.
    [[nodiscard]] QString fault_of(const AddressTarget& target, const QString& from) const {
        if (target.place == AddressTarget::Place::kOutside)
            return u"Leads to a file of this computer: no visitor can reach it."_s;
        if (target.place == AddressTarget::Place::kThisPage) return fault_of_anchor(from, target.anchor);
        const QString file = file_of(target.file);
        if (entries_.contains(file)) return fault_of_anchor(file, target.anchor);
        if (const QString other = by_lower_name_.value(file.toLower()); !other.isEmpty())
            return u"The file is called \"%1\": with other capitals it works here, but not on most servers."_s.arg(
                other);
        if (entries_.contains(editing_copy_name(file)))
            return u"The page \"%1\" was never saved: visitors do not get it yet."_s.arg(display_name(file));
        return is_page_file(file) ? u"The Website has no page \"%1\"."_s.arg(display_name(file))
                                  : u"The Website has no file \"%1\"."_s.arg(file);
    }

    /// The file that a server gives for a path: for a folder its index page.
    [[nodiscard]] QString file_of(QString path) const {
        while (path.endsWith(u'/')) path.chop(1);
        if (path.isEmpty()) return kHomePage;
        return entries_.contains(path) && QFileInfo(folder_.filePath(path)).isDir() ? path + u'/' + kHomePage : path;
    }

    [[nodiscard]] QString fault_of_anchor(const QString& page, const QString& anchor) const {
        const bool is_known = anchor.isEmpty() || anchor.startsWith(u":~:"_s) || !anchors_.contains(page) ||
                              anchor.compare(u"top", Qt::CaseInsensitive) == 0 || anchors_[page].contains(anchor);
        return is_known ? QString() : u"The page \"%1\" has no anchor \"%2\"."_s.arg(display_name(page), anchor);
    }

    QDir folder_;
    QString website_;
    QSet<QString> entries_;                  ///< files and folders of the Website, as paths in it
    QHash<QString, QString> by_lower_name_;  ///< the same by their names in lower case
    QHash<QString, QSet<QString>> anchors_;
    QList<ReadFile> read_;
    LinkCheck check_;
};

}  // namespace

LinkCheck broken_links(const QString& website_folder, const Steps& steps) {
    return LinkWalk(website_folder).run(steps);
}

}  // namespace pondera
