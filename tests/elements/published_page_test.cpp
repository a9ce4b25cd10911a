#include "elements/published_page.h"

#include <random>

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

PublishedPage convert(const QString& text, QList<ExpansionStep> expansions = {}) {
    static const Roots roots(u"/home/ann/Pondera_Folder"_s);
    return convert_page(
        text, {.roots = roots, .website = u"Caff\u00e8"_s, .expansions = std::move(expansions), .progress = {}});
}

TEST(PublishedPage, AddressesAreRepaired) {
    const std::vector<std::pair<QString, QString>> cases{
        {u"C:\\Pondera_Folder\\Pondera\\Shop\\a.htm"_s, u"../Shop/a.htm"_s},
        {u"file:///c:/pondera_folder/pondera/Caff\u00e8/media/img/a.jpg"_s, u"media/img/a.jpg"_s},
        {u"/home/ann/Pondera_Folder/Pondera/Caff\u00e8/\u00a7_4_B.htm"_s, u"_4_B.htm"_s},
        {u"file:///home/ann/Pondera_Folder/Pondera/Caff%C3%A8/%C2%A7_4_B.htm"_s, u"_4_B.htm"_s},
        {u"C%3A%5CPondera_Folder%5CPondera%5CCaff%C3%A8%5Cx.jpg"_s, u"x.jpg"_s},
        {u"../caff\u00e8/a.htm"_s, u"a.htm"_s},
        {u"../../Caff\u00e8/a.htm"_s, u"../../Caff\u00e8/a.htm"_s},
        {u"media\\img\\a.jpg"_s, u"media/img/a.jpg"_s},
        {u"\u00a7_4_Men\u00f9.htm"_s, u"_4_Men\u00f9.htm"_s},
        {u"\u00e7index.htm"_s, u"index.htm"_s},
        {u"%E7index.htm"_s, u"index.htm"_s},
        {u"?_4_B.htm"_s, u"_4_B.htm"_s},
        {u"'_2_B.htm"_s, u"_2_B.htm"_s},
        {u"../Shop/?_x_B.htm"_s, u"../Shop/_x_B.htm"_s},
        {u"..\\Shop\\?_1_B.htm"_s, u"../Shop/_1_B.htm"_s},
        {u"javascript:esempio('_4_B.htm',1,2)"_s, u"javascript:esempio('_4_B.htm',1,2)"_s},
        {u"javascript:f(a?'_4_a':'_2_c'); return '_4_b'; [                          '_y_d']"_s,
         u"javascript:f(a?'_4_a':'_2_c'); return '_4_b'; [                          '_y_d']"_s},
        {u"javascript:esempio(''_y_B.htm')"_s, u"javascript:esempio('_y_B.htm')"_s},
        {u"http://host/list.php?_4=1"_s, u"http://host/list.php?_4=1"_s},
        {u"/?_lang=it"_s, u"/?_lang=it"_s},
        {u"http://host/?_4_a=1"_s, u"http://host/?_4_a=1"_s},
        {u"http://host/a/?_y=1"_s, u"http://host/a/?_y=1"_s},
        {u"file://server/a.htm"_s, u"server/a.htm"_s},
    };
    for (const auto& [link, repaired] : cases)
        EXPECT_EQ(convert(u"<A href=\"%1\">x</A>"_s.arg(link)).text, u"<A href=\"%1\">x</A>"_s.arg(repaired));
}

TEST(PublishedPage, TextThatThePersonTypedSurvives) {
    const std::vector<std::pair<QString, QString>> cases{
        {u"<P>&sect; 4, gar&ccedil;on, a&#92;b &#167;</P>"_s, u"<P>&sect; 4, gar&ccedil;on, a&#92;b &#167;</P>"_s},
        {u"<P>One day.\r\nA new day.\nA third.</P>"_s, u"<P>One day.\r\nA new day.\nA third.</P>"_s},
        {u"<\rA href=\"x\">1</A><\r\nA href=\"x\">2</A><\nA href=\"x\">3</A>"_s,
         u"<A href=\"x\">1</A><A href=\"x\">2</A><A href=\"x\">3</A>"_s},
        {u"<P>gar\u00e7on \u00a7</P>"_s, u"<P>garon </P>"_s},
    };
    for (const auto& [text, published] : cases) EXPECT_EQ(convert(text).text, published);
}

TEST(PublishedPage, HandlersOfTheBoxesAreQuotedOnce) {
    const std::vector<std::pair<QString, QString>> cases{
        {u"<INPUT onkeypress=k=(document.all)?1:2;if(k==13)ChiamaMotore(); type=text>"_s,
         u"<INPUT onkeypress=\"k=(document.all)?1:2;if(k==13)ChiamaMotore();\" type=text>"_s},
        {u"<A onclick=k=(document.all)?a:b;ChiamaMotore(); title = \"x\">"_s,
         u"<A onclick=\"k=(document.all)?a:b;ChiamaMotore();\" title = \"x\">"_s},
        {u"<INPUT onclick=ClickArea();><P align=\"left\">"_s, u"<INPUT onclick=\"ClickArea();\"><P align=\"left\">"_s},
        {u"<INPUT onclick=\"ClickArea(); type=button value=\"Go\">"_s,
         u"<INPUT onclick=\"ClickArea();\" type=button value=\"Go\">"_s},
        {u"<INPUT onclick=\"ChiamaMotore();\" value=\"Go\">"_s, u"<INPUT onclick=\"ChiamaMotore();\" value=\"Go\">"_s},
        {u"<INPUT onclick=\"ChiamaMotore();return false\">"_s, u"<INPUT onclick=\"ChiamaMotore();return false\">"_s},
        {u"<SCRIPT>function f(){ChiamaMotore();}</SCRIPT>"_s, u"<SCRIPT>function f(){ChiamaMotore();}</SCRIPT>"_s},
    };
    for (const auto& [text, quoted] : cases) EXPECT_EQ(convert(text).text, quoted);
}

TEST(PublishedPage, PositionedElementsAreNormalisedAndReservedOnesStay) {
    const QString style = u"position:absolute; left:100; top:50"_s;
    const QString normal = u"POSITION: absolute; LEFT: 100px; TOP: 50px"_s;
    for (const QString& tag : {u"<IMG style=\"%1\" src=\"a\">"_s, u"<SPAN style=\"%1\">"_s,
                               u"<DIV id=a style=\"%1\">"_s, u"<img style='%1' name=axjpg>"_s})
        EXPECT_EQ(convert(tag.arg(style)).text, tag.arg(normal).replace(u"<img"_s, u"<IMG"_s));
    for (const QString& name : {u"mr"_s, u"HOMExPAGE2"_s, u"Tasto_Stampa"_s, u"S000"_s, u"S110"_s}) {
        const QString tag = u"<IMG style=\"%1\" name=%2>"_s.arg(style, name);
        EXPECT_EQ(convert(tag).text, tag);
    }
    EXPECT_EQ(convert(u"<P style=\"left:100\">"_s).text, u"<P style=\"left:100\">"_s);
}

TEST(PublishedPage, ReportsWhatIsNotClosed) {
    const QString anchor = u"ERROR: </A> not found!"_s;
    const QString image = u"ERROR NOT FOUND: >"_s;
    const std::vector<std::pair<QString, QStringList>> cases{
        {u"<A href=\"a\">1</A><A href=\"b\"><IMG src=\"c\"></A>"_s, {}},
        {u"<A href=\"a\">1<A href=\"b\">2</A><A href=\"c\">3"_s, {anchor}},
        {u"<IMG src=\"a\" <P>text</P>"_s, {image}},
        {u"<A href=\"a\"><IMG src=\"b\""_s, {image, anchor}},
        {u"<TITLE>All of <A></TITLE><TEXTAREA><A href=x></TEXTAREA><!--><A href=x></A>"_s, {}},
    };
    for (const auto& [text, reports] : cases) {
        const PublishedPage page = convert(text);
        EXPECT_EQ(page.reports, reports);
        EXPECT_EQ(page.text, text);
    }
}

TEST(PublishedPage, ExpansionsSeeTheConvertedText) {
    const ExpansionStep menu{u"menu"_s, [](const QString& page) { return u"["_s + page + u']'; }};
    const ExpansionStep video{u"video"_s,
                              [](const QString& page) { return QString(page).replace(u"[../"_s, u"(../"_s); }};
    EXPECT_EQ(convert(u"..\\a"_s, {menu, video}).text, u"(../a]"_s);
}

/// Pages put together from pieces as the editing control writes them: what a conversion leaves needs no second one.
TEST(PublishedPage, ConvertingTwiceChangesNothingMore) {
    const QStringList pieces{
        u"<P>text \u00a7 A </P>\r\n"_s,
        u"<A href=\"\u00a7_4_B.htm\">link</A>"_s,
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
        const QString once = convert(text).text;
        ASSERT_EQ(convert(once).text, once) << text.toStdString();
    }
}

}  // namespace

}  // namespace pondera
