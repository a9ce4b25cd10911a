#include "elements/published_page.h"

#include <random>

#include "tests/support/tables.h"

namespace pondera {

static PublishedPage convert(const QString& text, const QList<ExpansionStep>& expansions = {}) {
    static const Roots roots(u"/home/ann/Pondera_Folder"_s);
    return convert_page(text, {.roots = roots, .website = u"Caff\u00e8"_s, .expansions = expansions, .progress = {}});
}

static QString converted(const QString& text) {
    return convert(text).text;
}

TEST(PublishedPage, AddressesAreRepaired) {
    const auto address = [](const QString& link) {
        return converted(u"<A href=\"%1\">x</A>"_s.arg(link)).chopped(7).sliced(9);
    };
    expect_results(
        address,
        {u"C:\\Pondera_Folder\\Pondera\\Shop\\a.htm → ../Shop/a.htm",
         u"/home/ann/Pondera_Folder/Pondera/Caff\u00e8/\u00a7_4_B.htm → _4_B.htm",
         u"file:///home/ann/Pondera_Folder/Pondera/Caff%C3%A8/%c2%a7_4_B.htm → _4_B.htm",
         u"C%3A%5CPondera_Folder%5CPondera%5CCaff%C3%A8%5Cx.jpg → x.jpg", u"../caff\u00e8/a.htm → a.htm",
         u"\u00a7_4_Men\u00f9.htm → _4_Men\u00f9.htm", u"\u00e7index.htm → index.htm", u"%E7index.htm → index.htm",
         u"?_4_B.htm → _4_B.htm", u"'_2_B.htm → _2_B.htm", u"..\\Shop\\?_1_B.htm → ../Shop/_1_B.htm",
         u"javascript:esempio(''_y_B.htm') → javascript:esempio('_y_B.htm')", u"file://server/a.htm → server/a.htm"});
    expect_unchanged(address,
                     {u"../../Caff\u00e8/a.htm", u"javascript:esempio('_4_B.htm',1,2)",
                      u"javascript:f(a?'_4_a':'_2_c'); return '_4_b'; [                          '_y_d']",
                      u"http://host/list.php?_4=1", u"/?_lang=it", u"http://host/?_4_a=1", u"http://host/a/?_y=1"});
}

TEST(PublishedPage, TextThatThePersonTypedSurvives) {
    expect_unchanged(converted,
                     {u"<P>&sect; 4, gar&ccedil;on, a&#92;b &#167;</P>", u"<P>One day.\r\nA new day.\nA third.</P>"});
    expect_results(converted, {u"<\rA href=\"x\">1</A><\r\nA href=\"x\">2</A><\nA href=\"x\">3</A>"
                               u" → <A href=\"x\">1</A><A href=\"x\">2</A><A href=\"x\">3</A>",
                               u"<P>gar\u00e7on \u00a7</P> → <P>garon </P>"});
}

TEST(PublishedPage, HandlersOfTheBoxesAreQuotedOnce) {
    expect_results(converted, {u"<INPUT onkeypress=k=(document.all)?1:2;if(k==13)ChiamaMotore(); type=text>"
                               u" → <INPUT onkeypress=\"k=(document.all)?1:2;if(k==13)ChiamaMotore();\" type=text>",
                               u"<A onclick=k=(document.all)?a:b;f() title = \"x\">"
                               u" → <A onclick=\"k=(document.all)?a:b;f()\" title = \"x\">",
                               u"<INPUT onclick=ClickArea();><P align=\"left\">"
                               u" → <INPUT onclick=\"ClickArea();\"><P align=\"left\">",
                               u"<INPUT onclick=\"ClickArea(); type=button value=\"Go\">"
                               u" → <INPUT onclick=\"ClickArea();\" type=button value=\"Go\">"});
    expect_unchanged(converted, {u"<INPUT onclick=\"ChiamaMotore();\" value=\"Go\">",
                                 u"<INPUT onclick=\"ChiamaMotore();return false\">",
                                 u"<SCRIPT>function f(){ChiamaMotore();}</SCRIPT>"});
}

TEST(PublishedPage, PositionedElementsAreNormalisedAndReservedOnesStay) {
    const QString style = u"position:absolute; left:100; top:50"_s;
    const QString normal = u"POSITION: absolute; LEFT: 100px; TOP: 50px"_s;
    for (const QString& tag : {u"<IMG style=\"%1\" src=\"a\">"_s, u"<SPAN style=\"%1\">"_s,
                               u"<DIV id=a style=\"%1\">"_s, u"<img style='%1' name=axjpg>"_s})
        EXPECT_EQ(converted(tag.arg(style)), tag.arg(normal).replace(u"<img"_s, u"<IMG"_s));
    expect_unchanged(converted, {u"<IMG style=\"position:absolute; left:100\" name=HOMExPAGE2>",
                                 u"<IMG style=\"position:absolute; left:100\" name=S110>", u"<P style=\"left:100\">"});
}

TEST(PublishedPage, ReportsWhatIsNotClosed) {
    const QString anchor = u"ERROR: </A> not found!"_s;
    const QString image = u"ERROR NOT FOUND: >"_s;
    for (const auto& [text, reports] :
         {std::pair{u"<A href=\"a\">1</A><A href=\"b\"><IMG src=\"c\"></A>"_s, QStringList()},
          {u"<A href=\"a\">1<A href=\"b\">2</A><A href=\"c\">3"_s, {anchor}},
          {u"<A href=\"a\"><IMG src=\"b\" <P>text</P>"_s, {image, anchor}},
          {u"<TITLE>All of <A></TITLE><TEXTAREA><A href=x></TEXTAREA><!--><A href=x></A>"_s, {}}}) {
        EXPECT_EQ(convert(text).reports, reports);
        EXPECT_EQ(convert(text).text, text);
    }
}

TEST(PublishedPage, ExpansionsSeeTheConvertedText) {
    const ExpansionStep menu{u"menu"_s, [](const QString& page) { return u"["_s + page; }};
    const ExpansionStep video{u"video"_s, [](QString page) { return page.replace(u"[../"_s, u"(../"_s); }};
    EXPECT_EQ(convert(u"..\\a"_s, {menu, video}).text, u"(../a"_s);
}

/// Pages put together from pieces as the editing control writes them: what a conversion leaves needs no second one.
TEST(PublishedPage, ConvertingTwiceChangesNothingMore) {
    const QStringList pieces{
        u"<P>text \u00a7 A </P>\r\n<A href=\"\u00a7_4_B.htm\">link</A>"_s,
        u"<A href=\"javascript:esempio('_x_P.htm');\">popup</A>"_s,
        u"<A href=\"C:\\Pondera_Folder\\Pondera\\Caff\u00e8\\'_2_C.htm\">link</A>\n"_s,
        u"<IMG style=\"Z-INDEX: 5; LEFT: 10px; POSITION: absolute; TOP: 10\" name=a src=\"media\\img\\a.jpg\">"_s,
        u"<DIV style=\"position:absolute; left:1; top:2\">x</DIV>"_s,
        u"<INPUT onclick=ChiamaMotore(); type=button>"_s,
        u"<SCRIPT>if(1<a)'_4';</SCRIPT>"_s,
        u"it's 3 < 4 "_s};
    std::mt19937 random(20);
    for (int round = 0; round < 200; ++round) {
        QString text;
        for (int i = 0; i < 12; ++i) text += pieces[static_cast<qsizetype>(random() % pieces.size())];
        const QString once = converted(text);
        ASSERT_EQ(converted(once), once) << text.toStdString();
    }
}

}  // namespace pondera
