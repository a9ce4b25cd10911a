#include "base/zip_archive.h"

#include <QDir>
#include <QFile>

#include <memory>
#include <zip.h>

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

constexpr double kProgressPrecision = 0.001;

/// The archive while it is written; without zip_close nothing of it stays.
using Archive = std::unique_ptr<zip_t, decltype(&zip_discard)>;

FileError error_of(zip_error_t* error, const QString& path) {
    const bool of_system = zip_error_system_type(error) == ZIP_ET_SYS;
    return {of_system ? fault_of_errno(zip_error_code_system(error)) : FaultNumber::kUnexpected,
            QDir::toNativeSeparators(path), QString::fromUtf8(zip_error_strerror(error))};
}

/// How far the writing has come, for the two calls by which the library asks about it.
struct Watch {
    const Steps& steps;
    int total;
    int done = 0;
    bool stopped = false;

    static void progress(zip_t*, double share, void* watch) {
        auto* self = static_cast<Watch*>(watch);
        self->done = static_cast<int>(share * self->total);
    }
    static int cancelled(zip_t*, void* watch) {
        auto* self = static_cast<Watch*>(watch);
        self->stopped = self->stopped || !go_on(self->steps, self->done, self->total);
        return self->stopped ? 1 : 0;
    }
};

/// The fault of a file that may not be read or replaced.
FileError permission_error(const QString& path) {
    return file_error_of(std::make_error_code(std::errc::permission_denied), path);
}

FileResult<void> add_file(zip_t* zip, const QString& name, const QString& path) {
    // The library opens it only when it closes the archive, and then blames that.
    if (!QFileInfo(path).isReadable()) return std::unexpected(permission_error(path));
    zip_source_t* source = zip_source_file(zip, QFile::encodeName(path).constData(), 0, -1);
    if (source != nullptr && zip_file_add(zip, name.toUtf8().constData(), source, ZIP_FL_ENC_UTF_8) >= 0) return {};
    zip_source_free(source);
    return std::unexpected(error_of(zip_get_error(zip), path));
}

}  // namespace

FileResult<bool> write_zip(const QString& archive, const QString& top_folder, const QString& folder,
                           const QStringList& files, const Steps& steps) {
    const QFileInfo present(archive);
    if (present.exists() && !present.permission(QFile::WriteOwner)) return std::unexpected(permission_error(archive));
    int code = 0;
    Archive zip(zip_open(QFile::encodeName(archive).constData(), ZIP_CREATE | ZIP_TRUNCATE, &code), zip_discard);
    if (zip == nullptr) {
        zip_error_t error;
        zip_error_init_with_code(&error, code);
        const FileError fault = error_of(&error, archive);
        zip_error_fini(&error);
        return std::unexpected(fault);
    }
    const QDir from(folder);
    for (const QString& file : files)
        if (auto added = add_file(zip.get(), top_folder + u'/' + file, from.filePath(file)); !added)
            return std::unexpected(added.error());

    Watch watch{.steps = steps, .total = static_cast<int>(files.size())};
    zip_register_progress_callback_with_state(zip.get(), kProgressPrecision, Watch::progress, nullptr, &watch);
    zip_register_cancel_callback_with_state(zip.get(), Watch::cancelled, nullptr, &watch);
    if (zip_close(zip.get()) != 0) {
        if (watch.stopped) return false;
        return std::unexpected(error_of(zip_get_error(zip.get()), archive));
    }
    [[maybe_unused]] const zip_t* closed = zip.release();
    return true;
}

}  // namespace pondera
