#include "publish/sending/time_left.h"

#include <QLocale>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

using std::chrono::milliseconds;
using std::chrono::minutes;

constexpr double kBytesAFile = 16'000;  // what a file costs beside its bytes
constexpr milliseconds kFirstWord{3'000};
constexpr double kKilobyte = 1'000;
constexpr double kMegabyte = 1'000'000;

double cost(int files, qint64 bytes) {
    return files * kBytesAFile + static_cast<double>(bytes);
}

/// Bytes in the unit that suits `all` of them.
QString in_units(qint64 bytes, qint64 all) {
    const auto count = static_cast<double>(bytes);
    return static_cast<double>(all) < kMegabyte ? QLocale::c().toString(std::ceil(count / kKilobyte), 'f', 0)
                                                : QLocale::c().toString(count / kMegabyte, 'f', 1);
}

QString grouped(int number) {
    return QLocale(QLocale::English).toString(number);
}

}  // namespace

void TimeLeft::note(milliseconds elapsed, const SendProgress& progress) {
    elapsed_ = elapsed;
    progress_ = progress;
}

QString TimeLeft::text() const {
    const double done = cost(progress_.files_done, progress_.bytes_done);
    const double left = cost(progress_.files, progress_.bytes) - done;
    if (elapsed_ < kFirstWord || done <= 0 || left <= 0) return {};
    const double in_minutes = left / done * std::chrono::duration<double, std::ratio<60>>(elapsed_).count();
    constexpr double kInHours = 90;
    if (in_minutes < 1) return u"less than a minute left"_s;
    if (in_minutes < 1.5) return u"about a minute left"_s;
    if (in_minutes < kInHours) return u"about %1 minutes left"_s.arg(qRound(in_minutes));
    return u"about %1 hours left"_s.arg(grouped(qRound(std::min(in_minutes / 60, 1e6))));
}

QString progress_text(const SendProgress& progress) {
    return u"%1 of %2 %3, %4 of %5 %6"_s.arg(
        grouped(progress.files_done), grouped(progress.files), progress.files == 1 ? u"file"_s : u"files"_s,
        in_units(progress.bytes_done, progress.bytes), in_units(progress.bytes, progress.bytes),
        static_cast<double>(progress.bytes) < kMegabyte ? u"KB"_s : u"MB"_s);
}

}  // namespace pondera
