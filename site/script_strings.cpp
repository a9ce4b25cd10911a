#include "site/script_strings.h"

#include <algorithm>
#include <array>
#include <optional>

#include "base/character_references.h"

namespace pondera {

namespace {

constexpr qsizetype kLongestAddress = 512;
constexpr std::array<QStringView, 2> kPlainQuotes{u"'", u"\""};
constexpr std::array<QStringView, 6> kWrittenQuotes{u"&quot;", u"&#34;", u"&#39;", u"&apos;", u"%27", u"%22"};

bool ends_line(QChar c) {
    return c == u'\n' || c == u'\r';
}

bool is_blank(QChar c) {
    return c == u' ' || c == u'\t';
}

/// The kind code of a page's name, with or without an editing mark.
bool begins_as_page(QStringView address) {
    if (address.startsWith(u'§')) address = address.sliced(1);
    return address.size() > 3 && address[0] == u'_' && address[1].isLetterOrNumber() && address[2] == u'_';
}

/// An address without its query and anchor.
QStringView path_of(QStringView address) {
    return address.first(std::ranges::find_if(address, [](QChar c) { return c == u'?' || c == u'#'; }) -
                         address.begin());
}

/// What the file is for whose address a string could be.
std::optional<ReferenceKind> kind_of_string(QStringView address) {
    constexpr QStringView kNever = u"<>\"|*:;{}=+";
    const QStringView path = path_of(address);
    const bool never = path.isEmpty() || path.front().isSpace() || path.back().isSpace() ||
                       std::ranges::any_of(path, [&](QChar c) { return kNever.contains(c) || c.unicode() < 0x20; });
    return never ? std::nullopt : kind_of_file(address);
}

class StringScan {
  public:
    StringScan(QStringView text, qsizetype begin, qsizetype end, ScriptPlace place, const AddressSeen& seen)
        : text_(text), at_(begin), end_(end), place_(place), seen_(seen) {}

    void run() {
        bool line_begins = true;
        while (at_ < end_) {
            if (line_begins && (skip_comment() || take_whole_value())) continue;
            const QChar c = text_[at_];
            if (ends_line(c))
                line_begins = true;
            else if (!is_blank(c))
                line_begins = false;
            const QStringView quote = quote_here();
            if (quote.isEmpty())
                ++at_;
            else
                take_string(quote);
        }
    }

  private:
    [[nodiscard]] QStringView rest() const { return text_.first(end_).sliced(at_); }

    [[nodiscard]] qsizetype line_end() const {
        return std::find_if(text_.begin() + at_, text_.begin() + end_, ends_line) - text_.begin();
    }

    bool skip_comment() {
        if (rest().startsWith(u"//")) {
            at_ = line_end();
            return true;
        }
        if (!rest().startsWith(u"/*")) return false;
        const qsizetype close = rest().indexOf(u"*/", 2);
        at_ = close < 0 ? end_ : at_ + close + 2;
        return true;
    }

    /// Takes the value of a line "key = value".
    bool take_whole_value() {
        if (place_ != ScriptPlace::kSettings || ends_line(text_[at_])) return false;
        const qsizetype end = line_end();
        const QStringView line = text_.first(end).sliced(at_);
        const qsizetype equals = line.indexOf(u" = ");
        if (equals < 0) return false;
        const QStringView value = line.sliced(equals + 3).trimmed();
        const auto kind = kind_of_string(value);
        if (value.startsWith(u'\'') || !kind) return false;
        const qsizetype begin = value.begin() - text_.begin();
        seen_(begin, begin + value.size(), *kind);
        at_ = end;
        return true;
    }

    [[nodiscard]] QStringView quote_here() const {
        const QChar c = text_[at_];
        if (c == u'\'') return kPlainQuotes[0];
        if (c == u'"') return kPlainQuotes[1];
        if (place_ != ScriptPlace::kAttribute || (c != u'&' && c != u'%')) return {};
        const auto* written = std::ranges::find_if(kWrittenQuotes, [&](QStringView q) { return rest().startsWith(q); });
        return written == kWrittenQuotes.end() ? QStringView() : *written;
    }

    /// Takes what stands between the quote here and the next one when it is an address, else goes behind the quote: the
    /// string may hold markup with quoted addresses of its own.
    void take_string(QStringView quote) {
        const qsizetype opening = at_;
        at_ += quote.size();
        const QStringView near = rest().first(std::min(kLongestAddress, end_ - at_));
        const qsizetype length = near.indexOf(quote);
        if (length < 0) return;
        QStringView address = near.first(length);
        if (address.endsWith(u'\\')) address.chop(1);
        const QString meant =
            place_ == ScriptPlace::kAttribute ? resolve_character_references(address) : address.toString();
        const auto kind = kind_of_string(meant);
        if (!kind || (is_appended(opening) && !begins_as_page(meant))) return;
        seen_(at_, at_ + address.size(), *kind);
        at_ += length + quote.size();
    }

    [[nodiscard]] bool is_appended(qsizetype opening) const {
        while (opening > 0 && is_blank(text_[opening - 1])) --opening;
        return opening > 0 && text_[opening - 1] == u'+';
    }

    QStringView text_;
    qsizetype at_;
    qsizetype end_;
    ScriptPlace place_;
    const AddressSeen& seen_;
};

}  // namespace

void find_file_strings(QStringView text, qsizetype begin, qsizetype end, ScriptPlace place, const AddressSeen& seen) {
    StringScan(text, begin, end, place, seen).run();
}

std::optional<ReferenceKind> kind_of_file(QStringView address) {
    struct Ending {
        QStringView text;
        ReferenceKind kind;
    };
    using enum ReferenceKind;
    static constexpr std::array kEndings{
        Ending{u"htm", kLink},       Ending{u"html", kLink},    Ending{u"gif", kPicture},  Ending{u"jpg", kPicture},
        Ending{u"jpeg", kPicture},   Ending{u"png", kPicture},  Ending{u"webp", kPicture}, Ending{u"svg", kPicture},
        Ending{u"bmp", kPicture},    Ending{u"avif", kPicture}, Ending{u"ico", kPicture},  Ending{u"js", kScript},
        Ending{u"css", kStyleSheet}, Ending{u"mp3", kMedia},    Ending{u"wav", kMedia},    Ending{u"mid", kMedia},
        Ending{u"midi", kMedia},     Ending{u"ogg", kMedia},    Ending{u"m4a", kMedia},    Ending{u"aac", kMedia},
        Ending{u"flac", kMedia},     Ending{u"wma", kMedia},    Ending{u"mp4", kMedia},    Ending{u"m4v", kMedia},
        Ending{u"webm", kMedia},     Ending{u"ogv", kMedia},    Ending{u"avi", kMedia},    Ending{u"mpg", kMedia},
        Ending{u"mpeg", kMedia},     Ending{u"mov", kMedia},    Ending{u"wmv", kMedia},    Ending{u"swf", kMedia},
        Ending{u"flv", kMedia},      Ending{u"pdf", kLink},     Ending{u"doc", kLink},     Ending{u"docx", kLink},
        Ending{u"xls", kLink},       Ending{u"xlsx", kLink},    Ending{u"ppt", kLink},     Ending{u"pptx", kLink},
        Ending{u"odt", kLink},       Ending{u"rtf", kLink},     Ending{u"txt", kLink},     Ending{u"zip", kLink},
        Ending{u"exe", kLink},       Ending{u"php", kLink},     Ending{u"asp", kLink},     Ending{u"xml", kLink}};
    const QStringView path = path_of(address);
    const qsizetype dot = path.lastIndexOf(u'.');
    if (dot <= 0 || path[dot - 1] == u'/' || path[dot - 1] == u'\\') return std::nullopt;
    const QStringView ending = path.sliced(dot + 1);
    const auto* known = std::ranges::find_if(
        kEndings, [&](const Ending& e) { return e.text.compare(ending, Qt::CaseInsensitive) == 0; });
    if (known == kEndings.end()) return std::nullopt;
    return known->kind;
}

}  // namespace pondera
