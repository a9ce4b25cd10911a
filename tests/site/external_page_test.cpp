#include "site/external_page.h"

#include <QUrl>

#include "tests/support/tables.h"
#include "tests/support/test_folder.h"

namespace pondera {

/// A folder "Net" with a web page and what belongs to it, and the Website "Shop".
class ExternalPages : public testing::Test {
  protected:
    void SetUp() override { folder_.put(u"Shop/çindex.htm"_s); }

    BroughtPage bring(const QByteArray& text, const QString& file = u"Net/Trips.html"_s) {
        const auto page = bring_page_into_website({folder_.put(file, text), folder_.path(u"Shop"_s), u"Trips"_s});
        EXPECT_TRUE(page) << page.error().path.toStdString();
        return page.value_or(BroughtPage());
    }

    /// What stands in the Website for a piece of a page.
    QString brought(const QString& text) {
        bring(text.toUtf8());
        return QString::fromUtf8(folder_.bytes(u"Shop/§_y_Trips.htm"_s));
    }

    [[nodiscard]] QString in_website(const QString& file) const {
        return QString::fromUtf8(folder_.bytes(u"Shop/"_s + file));
    }

    TestFolder folder_;
};

TEST_F(ExternalPages, WhatAPageShowsComesWithIt) {
    folder_.put_all(u"Net"_s, u"a.gif Trips_files/100%.png pics/B.GIF s.mp3 f.mp4"_s);
    for (const QString& file : {u"My sea.jpg"_s, u"a.gif"_s}) folder_.put(u"Net/Trips_files/"_s + file, "2");
    folder_.put(u"Net/Trips_files/code.js.download"_s, "run()");
    folder_.put(u"Net/Trips_files/logo"_s, "GIF89a...");
    expect_results(
        [this](const QString& text) { return brought(text); },
        {u"<BODY background=a.gif><IMG src='Trips_files/My%20sea.jpg#x'> → <BODY background=media/img/a.gif><IMG "
         u"src='media/img/My-sea.jpg#x'>",
         u"<IMG src=./Trips_files/100%25.png srcset='Trips_files/a.gif 2x'> → "
         u"<IMG src=media/img/100.png srcset='media/img/a-2.gif 2x'>",
         u"<IMG src=PICS\\b.gif><P style='background: url(a.gif)'> → <IMG src=media/img/B.GIF><P style='background: "
         u"url(media/img/a.gif)'>",
         u"<AUDIO src=s.mp3></AUDIO><VIDEO src=f.mp4 poster=a.gif> → <AUDIO src=media/audio/s.mp3></AUDIO><VIDEO "
         u"src=media/video/f.mp4 poster=media/img/a.gif>",
         u"<SCRIPT src=Trips_files/code.js.download integrity=\"sha-1\" crossorigin>a='a.gif'</SCRIPT> → "
         u"<SCRIPT src=media/img/code.js>a='media/img/a.gif'</SCRIPT>",
         u"<IMG src='Trips_files/logo'><LINK rel=icon href=gone.ico> → <IMG src='media/img/logo.gif'><LINK rel=icon "
         u"href=gone.ico>",
         u"<BASE href='./Trips_files/' target=_top><IMG src='a.gif'> → <BASE  target=_top><IMG "
         u"src='media/img/a-2.gif'>",
         u"<BASE href='http://x.example/d/'><IMG src='a.gif'><A href='/b?c&amp;d'> → <BASE ><IMG "
         u"src='http://x.example/d/a.gif'><A href='http://x.example/b?c&amp;d'>",
         u"<IMG src=//x.example/a.gif><IMG src='data:a.gif'> → <IMG src=//x.example/a.gif><IMG src='data:a.gif'>"});
    EXPECT_EQ(in_website(u"media/img/code.js"_s), u"run()");
    EXPECT_EQ(in_website(u"media/img/a-2.gif"_s), u"2");
}

TEST_F(ExternalPages, NothingOutsideThePagesFolderIsTouched) {
    folder_.put_all(u"."_s, u"key.gif Net/.ssh/id.gif Net/.hidden.gif Net/notes.txt Net/run.php Net/style"_s, "secret");
    folder_.put(u"Net/index.php"_s, "GIF8 <?php");
    ASSERT_TRUE(QFile::link(folder_.path(u"key.gif"_s), folder_.path(u"Net/link.gif"_s)));
    ASSERT_TRUE(QFile::link(folder_.path(), folder_.path(u"Net/up"_s)));
    const QString url = QUrl::fromLocalFile(folder_.path(u"key.gif"_s)).toString();
    const QString page =
        u"<IMG src='../key.gif'><IMG src='%2e%2e/key.gif'><IMG src='x/..\\..\\key.gif'><IMG src='.ssh/id.gif'>"
        "<IMG src='.hidden.gif'><IMG src='link.gif'><IMG src='up/key.gif'><IMG src='"_s +
        url + u"'><IMG src='"_s + folder_.path(u"key.gif"_s) +
        u"'><IMG src='notes.txt'><LINK rel=stylesheet href=style><SCRIPT src=run.php></SCRIPT><IMG src=gone.gif>"_s;
    const BroughtPage told = bring(page.toUtf8());
    EXPECT_EQ(in_website(u"§_y_Trips.htm"_s), page);
    EXPECT_EQ(told.left_out.size(), 13) << told.left_out.join(u' ').toStdString();
    EXPECT_EQ(QDir(folder_.path(u"Shop"_s)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size(), 2);

    bring("<IMG src=index.php>");
    EXPECT_EQ(in_website(u"media/img/index.php.gif"_s), u"GIF8 <?php") << "no ending that a server runs";
}

TEST_F(ExternalPages, StyleSheetsComeWithWhatTheyShow) {
    folder_.put(u"Net/Trips_files/css2"_s,
                "@import 'more/deep.css'; @import 'css2'; b{background:url(\"../a.gif\")} c{src:url(f.eot?#iefix)}");
    folder_.put(u"Net/Trips_files/more/deep.css"_s,
                "i { background: url(dot.png) } u { background: url(../../../key.gif) }");
    folder_.put(u"Net/Trips_files/more/dot.png"_s, "dot");
    for (const QString& file : {u"Net/Trips_files/f.eot"_s, u"Net/a.gif"_s, u"key.gif"_s}) folder_.put(file);
    const BroughtPage told = bring("<LINK rel=stylesheet href='Trips_files/css2'>");
    EXPECT_EQ(in_website(u"§_y_Trips.htm"_s), u"<LINK rel=stylesheet href='media/img/css2.css'>");
    EXPECT_EQ(in_website(u"media/img/css2.css"_s),
              u"@import 'deep.css'; @import 'css2'; b{background:url(\"a.gif\")} c{src:url(f.eot#iefix)}");
    EXPECT_THAT(in_website(u"media/img/deep.css"_s), Holds(u"url(dot.png)"_s));
    EXPECT_EQ(in_website(u"media/img/dot.png"_s), u"dot");
    EXPECT_EQ(told.left_out.join(u' '), u"../../../key.gif css2");
}

TEST_F(ExternalPages, WhatPublishingWouldDamageIsKeptInFiles) {
    folder_.put(u"Net/a.gif"_s, "a");
    const QString stays = u"<SCRIPT>g('plain')</SCRIPT><SCRIPT type=\"application/ld+json\">\"\\/\"</SCRIPT>"_s;
    EXPECT_EQ(brought(u"<STYLE media=print>b:before { content: \"\\201C\"; background: url(a.gif) }</STYLE>"
                      "<SCRIPT type=module>f('\\n')</SCRIPT>"_s +
                      stays),
              u"<LINK rel=stylesheet href=\"media/img/Trips.css\" media=print>"
              "<SCRIPT src=\"media/img/Trips.js\" type=module></SCRIPT>"_s +
                  stays);
    EXPECT_EQ(in_website(u"media/img/Trips.css"_s), u"b:before { content: \"\\201C\"; background: url(a.gif) }");
    EXPECT_EQ(in_website(u"media/img/Trips.js"_s), u"f('\\n')");
}

TEST_F(ExternalPages, LinksStayOrFollowThePage) {
    folder_.put(u"Net/other.htm"_s);
    folder_.put(u"Shop/_4_Town.htm"_s);
    const BroughtPage told = bring(
        "<A href='Trips.html#sea%20side'><A href=other.htm><A href='gone.pdf'><IFRAME src=../up.htm></IFRAME>"
        "<A href=_4_Town.htm><A href=mailto:a@b.example>");
    EXPECT_EQ(in_website(u"§_y_Trips.htm"_s),
              u"<A href='_y_Trips.htm#sea%20side'><A href=other.htm><A href='gone.pdf'><IFRAME src=../up.htm></IFRAME>"
              "<A href=_4_Town.htm><A href=mailto:a@b.example>"_s);
    EXPECT_EQ(told.own_links.join(u' '), u"other.htm gone.pdf ../up.htm");
    EXPECT_EQ(told.left_out.size(), 0);
}

TEST_F(ExternalPages, TheEncodingStaysAndNamesAreOffered) {
    bring("<P>caf\xE9 <IMG src=a.gif>");
    EXPECT_EQ(folder_.bytes(u"Shop/§_y_Trips.htm"_s), "<P>caf\xE9 <IMG src=a.gif>");
    for (const auto& [file, website] : {std::pair(u"gone.htm"_s, u"Shop"_s), std::pair(u"Net/Trips.html"_s, u"Gone"_s)})
        EXPECT_FALSE(bring_page_into_website({folder_.path(file), folder_.path(website), u"Trips"_s}));
    expect_results(external_page_name, {u"/x/My trips, 2024.html → My-trips-2024", u"/x/old-site/INDEX.HTM → old-site",
                                        u"/x/a_4_b.v1112.htm → a-4-bv112", u"/x/_y_Città.htm → Citta"});
}

}  // namespace pondera
