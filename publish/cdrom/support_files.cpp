#include "publish/cdrom/support_files.h"

#include <QDir>
#include <QUrl>

#include <algorithm>

#include "base/files.h"
#include "base/text_file.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

const QString kAutorun = u"AUTORUN.INF"_s;
const QString kStart = u"Start.htm"_s;

/// Those who read this file know no UTF-8: a name beyond ASCII makes it UTF-16.
FileResult<void> copy_autorun(const QString& source, const QString& target, const QString& website) {
    auto file = read_text_file(source);
    if (!file) return std::unexpected(file.error());
    file->text.replace(u"%NAME%"_s, website);
    const bool plain = std::ranges::all_of(file->text, [](QChar c) { return c.unicode() < 0x80; });
    return write_text_file(target, file->text, plain ? TextEncoding::kAscii : TextEncoding::kUtf16Le);
}

FileResult<void> copy_start_page(const QString& source, const QString& target, const QString& website) {
    auto file = read_text_file(source);
    if (!file) return std::unexpected(file.error());
    file->text.replace(u"%ADDRESS%"_s, QString::fromLatin1(QUrl::toPercentEncoding(website)));
    file->text.replace(u"%NAME%"_s, website.toHtmlEscaped());
    return write_text_file(target, file->text, TextEncoding::kUtf8);
}

}  // namespace

QString SupportFile::name() const {
    return QFileInfo(source).fileName();
}

QList<SupportFile> support_files(const QString& website) {
    const auto in_package = [](const QString& name) { return SupportFile{name, PackagePart::kPackage, name}; };
    return {
        {u"pnd.ico"_s, PackagePart::kInstaller, u"pnd.ico"_s},
        {u"pndsetup.so"_s, PackagePart::kInstaller, u"pndsetup.so"_s},
        {u"Player Setup/Player.exe"_s, PackagePart::kInstaller, u"Install %1.exe"_s.arg(website)},
        {u"Player Setup/Uninstall.exe"_s, PackagePart::kInstaller, u"Uninstall.exe"_s},
        {u"Player Setup/Inserisci_CD.gif"_s, PackagePart::kInstaller, u"Inserisci_CD.gif"_s},
        in_package(kAutorun),
        in_package(u"pndplay.so"_s),
        in_package(u"multimedia.exe"_s),
        in_package(u"autorun.sh"_s),
        in_package(kStart),
    };
}

FileResult<void> copy_support_file(const SupportFile& file, const QString& tools_folder, const QString& folder,
                                   const QString& website) {
    const QString source = QDir(tools_folder).filePath(file.source);
    const QString target = QDir(folder).filePath(file.target);
    if (file.source == kAutorun) return copy_autorun(source, target, website);
    if (file.source == kStart) return copy_start_page(source, target, website);
    return copy_file(source, target, IfExists::kReplace);
}

}  // namespace pondera
