#include <QRegularExpression>
#include <QUrl>

#include <map>
#include <random>

#include "base/roots.h"
#include "site/page_name.h"
#include "site/page_operations.h"
#include "site/website_listing.h"
#include "tests/support/qt_text.h"
#include "tests/support/test_folder.h"

namespace pondera {

/// A Website in which every page has a number of its own in its text and every link tells the number of the page that
/// it is meant to lead to, so that links can be checked by reading the files alone.
class NumberedWebsite {
  public:
    explicit NumberedWebsite(unsigned seed) : random_(seed) {
        const QByteArray card =
            "<html><head><title>MODELLO</title></head>\r\n<body><h1>Subject...</h1>\r\n</body></html>\r\n";
        for (const QString& name : {u"_§_1_card.htm"_s, u"_§_2_card.htm"_s}) put(name, card);
        put(u"media/img/reference.js"_s, "txtHeight.Text = 20\r\n");
        put(u"media/img/menu_items.js"_s, "/* Main Menu Group and Items */\r\n");
        put(kHomePage, card);
        put(editing_copy_name(kHomePage), card);
        number(kHomePage);
    }

    void step() {
        const unsigned dice = random_() % 100;
        const QStringList pages = list_pages(folder());
        const QString page = pages[any(pages.size())];
        if (dice < 45)
            link(page, pages[any(pages.size())]);
        else if (dice < 60 && pages.size() < 40)
            create();
        else if (dice < 72)
            add_after(page);
        else if (dice < 88)
            rename(page);
        else
            remove(page);
    }

    /// Every link to a page that is there leads to it, every arrow leads to a page whose arrow leads back.
    void check() const {
        const std::map<int, QString> pages = pages_by_number();
        static const QRegularExpression links(
            u"(?|rel=(\\d+) href=\"([^\"]*)\"|List(\\d+)_0 = ([^\r]*)\r|this\\.url(\\d+) = '([^\r]*)';)"_s);
        int checked = 0;
        const auto check_link = [&](const QString& file, int target, const QString& address) {
            if (!pages.contains(target)) return;
            ++checked;
            EXPECT_EQ(name_in(address), pages.at(target)) << address.toStdString() << " in " << file.toStdString();
        };
        const QStringList settings_files{u"media/img/reference.js"_s, u"media/img/menu_items.js"_s};
        for (const QString& file : QDir(folder()).entryList({u"*.htm"_s}, QDir::Files) + settings_files)
            for (const auto& hit : links.globalMatch(text(file)))
                check_link(file, hit.captured(1).toInt(), hit.captured(2));
        EXPECT_GT(checked, 0);
        for (const auto& [number, page] : pages) {
            const QString next = arrow(page, u"F_Dex"_s);
            EXPECT_EQ(arrow(editing_copy_name(page), u"F_Dex"_s), next) << page.toStdString();
            EXPECT_TRUE(next.isEmpty() || arrow(next, u"F_Sin"_s) == page) << next.toStdString();
            const QString previous = arrow(page, u"F_Sin"_s);
            EXPECT_TRUE(previous.isEmpty() || arrow(previous, u"F_Dex"_s) == page) << previous.toStdString();
        }
    }

  private:
    [[nodiscard]] QString folder() const { return base_.path(u"Web site"_s); }
    [[nodiscard]] QString text(const QString& file) const {
        return QString::fromUtf8(base_.bytes(u"Web site/"_s + file));
    }
    void put(const QString& file, const QByteArray& bytes) const { base_.put(u"Web site/"_s + file, bytes); }
    qsizetype any(qsizetype count) { return static_cast<qsizetype>(random_() % static_cast<unsigned>(count)); }

    QString new_name() {
        const QStringList forms{u"Car %1"_s, u"Car_%1"_s, u"Città di mare %1"_s, u"日本 %1"_s, u"A%1 100% 'b' &c"_s};
        return forms[any(forms.size())].arg(++names_);
    }

    /// Writes into both files of a page.
    void insert(const QString& page, const QString& markup) const {
        for (const QString& file : {page, editing_copy_name(page)})
            put(file, text(file).replace(u"</body>"_s, markup + u"\r\n</body>"_s).toUtf8());
    }

    void number(const QString& page) { insert(page, u"<b id=page%1>"_s.arg(++numbers_)); }

    [[nodiscard]] int number_of(const QString& file) const {
        static const QRegularExpression mark(uR"(<b id=page(\d+)>)"_s);
        return mark.match(text(file)).captured(1).toInt();
    }

    [[nodiscard]] std::map<int, QString> pages_by_number() const {
        std::map<int, QString> pages;
        for (const QString& page : list_pages(folder())) {
            EXPECT_EQ(number_of(editing_copy_name(page)), number_of(page)) << page.toStdString();
            EXPECT_TRUE(pages.emplace(number_of(page), page).second) << page.toStdString() << " is there twice";
        }
        return pages;
    }

    void link(const QString& page, const QString& target) {
        const QString encoded = QString::fromLatin1(QUrl::toPercentEncoding(target));
        QString plain = target;
        plain.replace(u'%', u"%25"_s);
        const QStringList spellings{
            encoded,
            plain,
            u"§"_s + plain,
            u"./"_s + encoded + u"#part"_s,
            u"../Web%20site/"_s + encoded + u"?a=b"_s,
            u"javascript:esempio('"_s + QString(encoded).replace(u'\'', u"%27"_s) + u"',300,200);"_s};
        const qsizetype kind = any(spellings.size() + 2);
        const int number = number_of(target);
        if (kind < spellings.size()) {
            insert(page, u"<a rel=%1 href=\""_s.arg(number) + spellings[kind] + u"\">_4_Car 1.htm</a>"_s);
            return;
        }
        const bool settings = kind == spellings.size() && !target.contains(u'%');
        const QString file = settings ? u"media/img/reference.js"_s : u"media/img/menu_items.js"_s;
        put(file, (text(file) +
                   (settings ? u"List%1_0 = "_s.arg(number) + target + u"\r\n"_s
                             : u"this.url%1 = '"_s.arg(number) + QString(encoded).replace(u'\'', u"%27"_s) + u"';\r"_s))
                      .toUtf8());
    }

    void create() {
        const auto page = create_page({folder(), PageKind::kSubject, new_name()});
        ASSERT_TRUE(page);
        put(*page, text(editing_copy_name(*page)).toUtf8());
        number(*page);
    }

    void add_after(const QString& page) {
        if (has_next_arrow(text(page))) return;
        const auto added = add_following_page(Roots(base_.path()), folder(), page);
        ASSERT_TRUE(added);
        number(added->page);
    }

    void rename(const QString& page) {
        if (page.startsWith(u"index")) return;
        const PageOutcome outcome = rename_page(folder(), page, new_name());
        EXPECT_TRUE(outcome.done && outcome.message.isEmpty()) << outcome.message.toStdString();
    }

    void remove(const QString& page) {
        const PageOutcome outcome = delete_page(folder(), page);
        EXPECT_EQ(outcome.done, !is_home_page(page));
    }

    /// The page that an address of the test names.
    static QString name_in(const QString& address) {
        static const QRegularExpression around(
            u"^(?:javascript:esempio\\('|\\./|\\.\\./Web%20site/)?§?(.*?)(?:',300,200\\);|#part|\\?a=b)?$"_s);
        return QUrl::fromPercentEncoding(around.match(address).captured(1).toUtf8());
    }

    [[nodiscard]] QString arrow(const QString& page, const QString& id) const {
        const QRegularExpression link(u"<A href=\"([^\"]*)\"><IMG id=%1 "_s.arg(id));
        return QUrl::fromPercentEncoding(link.match(text(page)).captured(1).toUtf8());
    }

    TestFolder base_;
    std::mt19937 random_;
    int names_ = 0;
    int numbers_ = 0;
};

TEST(RandomOperations, BreakNoLink) {
    NumberedWebsite website(2003);
    for (int step = 1; step <= 1000; ++step) {
        website.step();
        if (step % 20 == 0) website.check();
        ASSERT_FALSE(testing::Test::HasFailure()) << "after step " << step;
    }
}

}  // namespace pondera
