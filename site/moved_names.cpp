#include "site/moved_names.h"

#include <algorithm>

#include "site/page_references.h"

namespace pondera {

namespace {

constexpr QByteArrayView kPlainSigns("_0123456789.-");
constexpr qsizetype kShortestPiece = 5;

bool is_plain(QChar c) {
    return c.unicode() < 0x80 && (c.isLetterOrNumber() || kPlainSigns.contains(c.toLatin1()));
}

/// The longest piece of a name that no spelling changes but for its case.
QByteArray plain_piece(const QString& name) {
    QByteArray longest;
    QByteArray piece;
    for (const QChar c : name) {
        if (is_plain(c))
            piece += c.toLatin1();
        else
            piece.clear();
        if (piece.size() > longest.size()) longest = piece;
    }
    return longest.toLower();
}

QByteArray common_beginning(const QByteArray& a, const QByteArray& b) {
    return a.first(std::ranges::mismatch(a, b).in1 - a.begin());
}

/// Where the sign stands by which a piece is sought: the rarest kind that it has; -1 when it has letters only.
qsizetype anchor_of(const QByteArray& piece) {
    for (const char sign : kPlainSigns)
        if (const qsizetype at = piece.indexOf(sign); at >= 0) return at;
    return -1;
}

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

char lower(QChar c) {
    return c.unicode() < 0x80 ? lower(c.toLatin1()) : '\0';
}

char sign_in(QByteArrayView, char sign) {
    return sign;
}

QChar sign_in(QStringView, char sign) {
    return QLatin1Char(sign);
}

/// Calls `found` for each place of a piece in a text or in bytes, any case, until it answers false.
template <typename View, typename Found>
void find_piece(View text, const QByteArray& piece, qsizetype anchor, Found found) {
    const auto sign = sign_in(text, piece[anchor]);
    for (qsizetype at = text.indexOf(sign, anchor); at >= 0; at = text.indexOf(sign, at + 1)) {
        const qsizetype begin = at - anchor;
        if (begin + piece.size() > text.size()) return;
        const bool equal =
            std::ranges::equal(text.sliced(begin, piece.size()), piece, {}, [](auto c) { return lower(c); });
        if (equal && !found(begin)) return;
    }
}

}  // namespace

MovedNames::MovedNames(const QList<PageMove>& moves, const QString& website, const QSet<QString>& taken)
    : website_(website), taken_(taken) {
    for (const PageMove& move : moves) {
        if (move.from == move.to) continue;
        exact_.insert(move.from, move.to);
        any_case_.insert(move.from.toCaseFolded(), move.to);
    }
    make_pieces();
}

void MovedNames::make_pieces() {
    QList<QByteArray> texts;
    for (auto move = exact_.keyBegin(); move != exact_.keyEnd(); ++move) texts += plain_piece(*move);
    if (texts.isEmpty()) return;
    QByteArray common = texts.first();
    for (const QByteArray& text : texts) common = common_beginning(common, text);
    if (common.size() >= kShortestPiece) texts = {common};
    for (const QByteArray& text : texts) pieces_ += Piece{text, anchor_of(text)};
}

QString MovedNames::new_name(const QString& address) const {
    const AddressTarget target = resolve_address(address, website_);
    if (target.place != AddressTarget::Place::kWebsite) return {};
    if (const auto hit = exact_.constFind(target.file); hit != exact_.constEnd()) return *hit;
    return taken_.contains(target.file) ? QString() : any_case_.value(target.file.toCaseFolded());
}

bool MovedNames::may_be_in(QByteArrayView bytes) const {
    if (bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF")) return true;
    return std::ranges::any_of(pieces_, [&](const Piece& piece) {
        bool there = piece.anchor < 0;
        if (!there) find_piece(bytes, piece.text, piece.anchor, [&](qsizetype) { return !(there = true); });
        return there;
    });
}

QList<qsizetype> MovedNames::places_in(QStringView text) const {
    QList<qsizetype> places;
    const auto add = [&](qsizetype place) {
        places += place;
        return true;
    };
    for (const Piece& piece : pieces_) {
        if (piece.anchor >= 0) {
            find_piece(text, piece.text, piece.anchor, add);
            continue;
        }
        const QString letters = QString::fromLatin1(piece.text);
        for (qsizetype at = text.indexOf(letters, 0, Qt::CaseInsensitive); at >= 0;
             at = text.indexOf(letters, at + 1, Qt::CaseInsensitive))
            add(at);
    }
    std::ranges::sort(places);
    return places;
}

bool MovedNames::fit(TextEncoding encoding) const {
    return std::ranges::all_of(
        exact_, [&](const QString& name) { return decode_text(encode_text(name, encoding)).text == name; });
}

}  // namespace pondera
