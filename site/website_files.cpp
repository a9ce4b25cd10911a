#include "site/website_files.h"

#include <QDir>
#include <QDirIterator>
#include <QSet>

#include <algorithm>

#include "site/page_name.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

const QString kSystemFile = u"You cannot cancel a system file."_s;

const QSet<QString>& system_files() {
    static const QStringList words =
        u"PRINT.GIF PRINTON.GIF 100X100.JPG 320X240.JPG 640X480.JPG A_OVA.GIF A_OVA_ON.GIF A_RETT.GIF A_RETT_ON.GIF "
        u"EMAIL1.GIF EMAIL2.GIF EMAIL3.GIF EMAIL4.GIF EMAIL5.GIF F_DEX.GIF F_SIN.GIF F_SIN_ON.GIF DOWN1.GIF DOWN2.GIF "
        u"DOWN3.GIF DOWN4.GIF DOWN5.GIF INDEXIMAGE.JPG JAVA_FILE_FIRE.JS JAVA_FILE_IE.JS JAVA_FILE_OPERA.JS "
        u"MENU_ITEMS.JS EXT_HTML.JPG CASCADE-MENU.JPG CART.GIF ADD-TO-CART.GIF PND.CSS ACCESS.JS BOX-HOME.JPG "
        u"BOX-PRO.JPG DETAILS.GIF POCKET_FLASH.GIF REFERENCE.JS V-T.JPG SEARCHENGINE.JS SFUMATO_BIANCO_NERO.JPG "
        u"SPACER.GIF TRASP.GIF PND.JPG"_s.split(u' ');
    static const QSet<QString> files(words.begin(), words.end());
    return files;
}

/// The message for a file beside the pages, by its name.
std::optional<QString> refusal_beside_pages(const QString& file_name) {
    if (!is_page_file(file_name)) return is_never_listed(file_name) ? std::optional(kSystemFile) : std::nullopt;
    const QString page = published_name(file_name);
    const bool is_page = !is_never_listed(page) && (file_name == page || file_name == editing_copy_name(page));
    return is_page ? u"\"%1\" is a page of the Website. Delete it with Delete Page."_s.arg(display_name(page))
                   : kSystemFile;
}

}  // namespace

bool is_system_file(const QString& file_name) {
    return system_files().contains(file_name.toUpper());
}

std::optional<QString> refusal_of_file_deletion(const QString& file, const QString& website_folder) {
    const QFileInfo chosen(file);
    const QDir website(QFileInfo(website_folder).canonicalFilePath());
    // A link is judged both by the place it stands in and by the file that it leads to.
    const QString place = QDir(chosen.canonicalPath()).filePath(chosen.fileName());
    for (const QString& path : {place, chosen.canonicalFilePath()}) {
        const QString relative = website.relativeFilePath(path);
        if (relative.startsWith(u"../"_s) || QDir::isAbsolutePath(relative))
            return u"Select an image of the current Website."_s;
        if (is_system_file(QFileInfo(path).fileName())) return kSystemFile;
        if (relative.contains(u'/')) continue;
        if (auto refusal = refusal_beside_pages(relative)) return refusal;
    }
    return std::nullopt;
}

QStringList deletable_files(const QString& website_folder, const QString& subfolder) {
    const QDir website(website_folder);
    QStringList files;
    QDirIterator entries(website.filePath(subfolder), QDir::Files,
                         subfolder.isEmpty() ? QDirIterator::Subdirectories : QDirIterator::NoIteratorFlags);
    while (entries.hasNext()) {
        const QString path = entries.next();
        if (!refusal_of_file_deletion(path, website_folder)) files += website.relativeFilePath(path);
    }
    std::ranges::sort(files, [](const QString& a, const QString& b) {
        const int order = a.compare(b, Qt::CaseInsensitive);
        return order == 0 ? a < b : order < 0;
    });
    return files;
}

}  // namespace pondera
