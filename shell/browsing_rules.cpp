#include "shell/browsing_rules.h"

#include <QDir>
#include <QFileInfo>

#include "site/page_name.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

bool is_picture(const QString& file_name) {
    static const QStringList kEndings{u"gif"_s, u"jpg"_s, u"jpeg"_s, u"png"_s, u"svg"_s, u"webp"_s, u"bmp"_s};
    return kEndings.contains(QFileInfo(file_name).suffix().toLower());
}

bool lies_in(const QFileInfo& file, const QString& folder) {
    const QString path = file.canonicalFilePath();
    return !path.isEmpty() && path.startsWith(QFileInfo(folder).canonicalFilePath() + u'/');
}

/// The system is never asked to open what could be a program.
bool could_be_program(const QFileInfo& file) {
    static const QStringList kEndings{u"desktop"_s, u"sh"_s, u"exe"_s, u"bat"_s, u"cmd"_s, u"com"_s, u"js"_s, u"vbs"_s};
    return file.isExecutable() || kEndings.contains(file.suffix().toLower());
}

}  // namespace

LinkTarget link_target(const QUrl& url, const QString& website_folder) {
    static const QStringList kPlaceless{u"about"_s, u"javascript"_s, u"data"_s, u"blob"_s};
    if (kPlaceless.contains(url.scheme())) return LinkTarget::kShow;
    if (!url.isLocalFile()) return LinkTarget::kOutside;

    const QFileInfo file(url.toLocalFile());
    if (website_folder.isEmpty() || !file.isFile() || !lies_in(file, website_folder)) return LinkTarget::kMissing;
    if (is_page_file(file.fileName()) || is_picture(file.fileName())) return LinkTarget::kShow;
    return could_be_program(file) ? LinkTarget::kMissing : LinkTarget::kOutside;
}

std::optional<QString> page_to_edit(const QString& shown_file, const QString& current_page) {
    if (shown_file.startsWith(u'§')) return std::nullopt;
    const QString name = published_name(shown_file);
    const bool blank = name == "vuota"_L1 || name == "vuota.htm"_L1;
    return blank || !is_page_file(name) ? current_page : name;
}

}  // namespace pondera
