#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include "base/files.h"
#include "base/roots.h"
#include "base/text_file.h"
#include "publish/sending/checksum.h"
#include "publish/sending/prepared_page.h"
#include "publish/sending/publication.h"
#include "site/page_name.h"
#include "site/page_references.h"
#include "site/published_files.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

constexpr qint64 kChunk = 1 << 20;

bool is_page(const QString& path) {
    return is_page_file(path.section(u'/', -1));
}

/// Hands the bytes of a file to `take` in parts; false when it asked to stop.
FileResult<bool> read_in_parts(const QString& path, const std::function<FileResult<bool>(const QByteArray&)>& take) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) return std::unexpected(file_error_of(file));
    while (true) {
        const QByteArray part = file.read(kChunk);
        if (file.error() != QFileDevice::NoError) return std::unexpected(file_error_of(file));
        if (part.isEmpty()) return true;
        if (const FileResult<bool> taken = take(part); !taken || !*taken) return taken;
    }
}

/// A page as visitors get it, and the pages that it shows in frames.
struct PreparedPage {
    QByteArray bytes;
    QStringList shown;
};

FileResult<PreparedPage> read_page(const Roots& roots, const QString& website, const QString& path) {
    const FileResult<QByteArray> bytes = read_file(QDir(roots.website(website)).filePath(path));
    if (!bytes) return std::unexpected(bytes.error());
    const TextFile page = decode_text(*bytes);
    const QString text = prepared_page(page.text, roots, website);
    PreparedPage result{.bytes = text == page.text ? *bytes : encode_text(text, page.encoding), .shown = {}};
    static const QRegularExpression kFrame(u"<i?frame"_s, QRegularExpression::CaseInsensitiveOption);
    if (!text.contains(kFrame)) return result;
    for (const PageReference& reference : page_references(text))
        if (reference.kind == ReferenceKind::kFrame) result.shown << resolve_address(reference.address, website).file;
    return result;
}

/// The survey of one Website.
class Survey {
  public:
    Survey(const Roots& roots, const QString& website, const Steps& steps)
        : roots_(roots), website_(website), folder_(roots.website(website)), steps_(steps) {}

    FileResult<WebsiteSurvey> run() {
        const FileResult<QStringList> paths = published_files(folder_.path());
        if (!paths) return std::unexpected(paths.error());
        total_ = static_cast<int>(paths->size());
        for (const QString& path : *paths) {
            const FileResult<bool> taken = take(path);
            if (!taken) return std::unexpected(taken.error());
            if (!*taken) return WebsiteSurvey{.files = {}, .cancelled = true};
            ++done_;
        }
        return WebsiteSurvey{.files = in_order(*paths), .cancelled = !go_on(steps_, total_, total_)};
    }

  private:
    FileResult<bool> take(const QString& path) {
        if (!go_on(steps_, done_, total_)) return false;
        PublishedFile file{.path = path,
                           .size = 0,
                           .modified = QFileInfo(folder_.filePath(path)).lastModified().toUTC(),
                           .checksum = {}};
        if (is_page(path)) {
            const FileResult<PreparedPage> page = read_page(roots_, website_, path);
            if (!page) return std::unexpected(page.error());
            file.size = page->bytes.size();
            file.checksum = Checksum::of(page->bytes);
            shown_[path] = page->shown;
        } else {
            Checksum checksum;
            const auto add = [&](const QByteArray& part) -> FileResult<bool> {
                checksum.add(part);
                file.size += part.size();
                return go_on(steps_, done_, total_);
            };
            if (const FileResult<bool> read = read_in_parts(folder_.filePath(path), add); !read || !*read) return read;
            file.checksum = checksum.result();
        }
        files_.insert(path, file);
        return true;
    }

    /// The media folders, then what lies beside the pages, then the pages; the home page last.
    QList<PublishedFile> in_order(const QStringList& paths) {
        const auto append = [this](const QString& path) { ordered_ << files_.take(path); };
        for (const QString& path : paths)
            if (path.contains(u'/')) append(path);
        for (const QString& path : paths)
            if (!path.contains(u'/') && !is_page(path)) append(path);
        for (const QString& path : paths)
            if (path != kHomePage) append_page(path);
        append_page(kHomePage);
        return std::move(ordered_);
    }

    /// A page behind those that it shows in frames.
    void append_page(const QString& path) {
        if (!files_.contains(path)) return;
        const PublishedFile page = files_.take(path);
        for (const QString& shown : shown_.value(path))
            if (shown != kHomePage) append_page(shown);
        ordered_ << page;
    }

    const Roots& roots_;
    const QString& website_;
    QDir folder_;
    const Steps& steps_;
    int done_ = 0;
    int total_ = 0;
    QHash<QString, PublishedFile> files_;
    QHash<QString, QStringList> shown_;
    QList<PublishedFile> ordered_;
};

FileError changed(const QString& path) {
    return {FaultNumber::kUnexpected, QDir::toNativeSeparators(path), u"it was changed while it was being published"_s};
}

FileResult<bool> copy_bytes(const QString& source, const PublishedFile& file, QFile& to,
                            const std::function<bool()>& go_on) {
    Checksum checksum;
    const auto copy = [&](const QByteArray& part) -> FileResult<bool> {
        checksum.add(part);
        if (const FileResult<void> written = write_whole(to, part); !written) return std::unexpected(written.error());
        return !go_on || go_on();
    };
    if (const FileResult<bool> copied = read_in_parts(source, copy); !copied || !*copied) return copied;
    if (checksum.result() != file.checksum) return std::unexpected(changed(source));
    return true;
}

}  // namespace

FileResult<WebsiteSurvey> survey_website(const Roots& roots, const QString& website, const Steps& steps) {
    return Survey(roots, website, steps).run();
}

FileResult<QByteArray> prepared_file(const Roots& roots, const QString& website, const QString& path) {
    if (!is_page(path)) return read_file(QDir(roots.website(website)).filePath(path));
    FileResult<PreparedPage> page = read_page(roots, website, path);
    if (!page) return std::unexpected(page.error());
    return std::move(page->bytes);
}

FileResult<bool> copy_prepared(const Roots& roots, const QString& website, const PublishedFile& file,
                               const QString& target, const std::function<bool()>& go_on) {
    const QString source = QDir(roots.website(website)).filePath(file.path);
    QFile to(target);
    if (!to.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        return std::unexpected(file_error_of(to));
    FileResult<bool> copied = true;
    if (!is_page(file.path)) {
        copied = copy_bytes(source, file, to, go_on);
    } else if (const FileResult<PreparedPage> page = read_page(roots, website, file.path); !page) {
        copied = std::unexpected(page.error());
    } else if (Checksum::of(page->bytes) != file.checksum) {
        copied = std::unexpected(changed(source));
    } else if (const FileResult<void> written = write_whole(to, page->bytes); !written) {
        copied = std::unexpected(written.error());
    }
    if (!copied || !*copied) to.remove();
    return copied;
}

}  // namespace pondera
