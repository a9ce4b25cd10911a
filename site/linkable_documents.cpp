#include "site/linkable_documents.h"

#include <QDir>
#include <QFileInfo>

#include "site/page_name.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

bool is_document(const QString& file_name) {
    return document_endings().contains(QFileInfo(file_name).suffix().toLower());
}

}  // namespace

const QStringList& document_endings() {
    static const QStringList kEndings =
        u"pdf doc docx odt rtf txt xls xlsx ods csv ppt pptx odp epub zip mp3 ogg wav m4a mp4 webm ics vcf gpx jpg jpeg png gif webp svg"_s
            .split(u' ');
    return kEndings;
}

QStringList list_linkable_documents(const QString& website_folder) {
    const QStringList files = QDir(website_folder).entryList(QDir::Files, QDir::Name | QDir::IgnoreCase);
    QStringList documents;
    for (const QString& file : files)
        if (is_document(file) && !is_never_listed(file)) documents.append(file);
    return documents;
}

std::optional<QString> refusal_of_document(const QString& path) {
    if (path.trimmed().isEmpty()) return u"Choose the file that the link is to lead to."_s;
    const QFileInfo file(path);
    if (!file.isFile()) return u"The file \"%1\" does not exist."_s.arg(path);
    if (is_page_file(path))
        return u"\"%1\" is a web page. Bring it into the Website as an external page first."_s.arg(file.fileName());
    if (!is_document(path))
        return u"Visitors cannot open files of the kind \"%1\". Put it into a ZIP file, or choose a PDF, an office "
               "document, a picture, a sound or a film."_s.arg(file.suffix().isEmpty() ? file.fileName()
                                                                                       : file.suffix());
    if (!file.isReadable()) return u"The file \"%1\" cannot be read."_s.arg(path);
    return std::nullopt;
}

}  // namespace pondera
