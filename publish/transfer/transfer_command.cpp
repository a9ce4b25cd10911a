#include "publish/transfer/transfer_command.h"

#include <QHash>
#include <QList>
#include <QRegularExpression>

#include <algorithm>
#include <utility>

#include "publish/transfer/remote_name.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

using Pair = std::pair<QString, QString>;

bool is_absolute_local(const QString& path) {
    static const QRegularExpression kDrive(u"^[A-Za-z]:[\\\\/]"_s);
    return path.startsWith(u'/') || path.startsWith(u"\\\\") || kDrive.match(path).hasMatch();
}

QString file_name(const QString& path) {
    return path.sliced(std::max(path.lastIndexOf(u'/'), path.lastIndexOf(u'\\')) + 1);
}

/// Takes a quoted name off the front of `text`, with the blanks behind it.
std::optional<QString> take_quoted(QString& text) {
    static const QRegularExpression kQuoted(u"^\"((?:[^\"]|\"\")*)\"(?:\\s+|$)"_s);
    const QRegularExpressionMatch match = kQuoted.match(text);
    if (!match.hasMatch()) return std::nullopt;
    text.remove(0, match.capturedLength());
    return match.captured(1).replace(u"\"\""_s, u"\""_s);
}

std::optional<Pair> only_one(const QList<Pair>& cuts) {
    if (cuts.size() == 1) return cuts.first();
    QList<Pair> same_name;
    std::ranges::copy_if(cuts, std::back_inserter(same_name),
                         [](const Pair& cut) { return file_name(cut.first) == file_name(cut.second); });
    return same_name.size() == 1 ? std::optional(same_name.first()) : std::nullopt;
}

/// Two names; `fits` tells a likely cut of the unquoted ones.
std::optional<Pair> two_names(QString text, const std::function<bool(const Pair&)>& fits) {
    if (std::optional<QString> first = take_quoted(text)) {
        std::optional<QString> second = text;
        if (text.startsWith(u'"')) {
            second = take_quoted(text);
            if (!text.isEmpty()) return std::nullopt;
        }
        return second ? std::optional(Pair(*first, *second)) : std::nullopt;
    }
    // The second name alone may be quoted.
    if (const qsizetype quote = text.indexOf(u" \""); quote > 0 && text.endsWith(u'"')) {
        QString rest = text.sliced(quote + 1);
        const std::optional<QString> second = take_quoted(rest);
        if (second && rest.isEmpty()) return Pair(text.first(quote), *second);
    }
    QList<Pair> all;
    QList<Pair> likely;
    for (qsizetype blank = text.indexOf(u' '); blank >= 0; blank = text.indexOf(u' ', blank + 1)) {
        const Pair cut(text.first(blank), text.sliced(blank + 1));
        if (cut.first.isEmpty() || cut.second.isEmpty()) continue;
        all << cut;
        if (fits(cut)) likely << cut;
    }
    return only_one(likely.isEmpty() ? all : likely);
}

std::optional<QString> one_name(QString text) {
    if (!text.startsWith(u'"')) return text;
    const std::optional<QString> name = take_quoted(text);
    return text.isEmpty() ? name : std::nullopt;
}

}  // namespace

std::optional<TransferCommand> parse_command(const QString& command,
                                             const std::function<bool(const QString& path)>& is_file) {
    static const QHash<QString, TransferVerb> kVerbs = {
        {u"DIR"_s, TransferVerb::kDir},       {u"CD"_s, TransferVerb::kCd},       {u"CDUP"_s, TransferVerb::kCdUp},
        {u"GET"_s, TransferVerb::kGet},       {u"SEND"_s, TransferVerb::kSend},   {u"MKDIR"_s, TransferVerb::kMkDir},
        {u"DELETE"_s, TransferVerb::kDelete}, {u"RMDIR"_s, TransferVerb::kRmDir},
    };
    if (has_control_characters(command)) return std::nullopt;
    const QString text = command.trimmed();
    const auto verb = kVerbs.constFind(text.section(u' ', 0, 0).toUpper());
    if (verb == kVerbs.cend()) return std::nullopt;
    const QString names = text.section(u' ', 1).trimmed();

    TransferCommand result{.verb = *verb, .remote = {}, .local = {}};
    if (result.verb == TransferVerb::kDir || result.verb == TransferVerb::kCdUp)
        return names.isEmpty() ? std::optional(result) : std::nullopt;
    if (result.verb == TransferVerb::kGet) {
        const auto pair = two_names(names, [](const Pair& cut) { return is_absolute_local(cut.second); });
        if (!pair) return std::nullopt;
        std::tie(result.remote, result.local) = *pair;
    } else if (result.verb == TransferVerb::kSend) {
        const auto pair = two_names(names, [&is_file](const Pair& cut) { return is_file(cut.first); });
        if (!pair) return std::nullopt;
        std::tie(result.local, result.remote) = *pair;
    } else if (const auto name = one_name(names)) {
        result.remote = *name;
    }
    const bool two = result.verb == TransferVerb::kGet || result.verb == TransferVerb::kSend;
    if (result.remote.isEmpty() || (two && result.local.isEmpty())) return std::nullopt;
    return result;
}

QString quoted(const QString& name) {
    return u'"' + QString(name).replace(u"\""_s, u"\"\""_s) + u'"';
}

QString command_text(const QString& verb, const QString& name, const QString& second) {
    QString text = verb;
    for (const QString& word : {name, second}) {
        if (word.isEmpty()) continue;
        const bool plain = std::ranges::none_of(word, [](QChar c) { return c.isSpace() || c == u'"'; });
        text += u' ' + (plain ? word : quoted(word));
    }
    return text;
}

}  // namespace pondera
