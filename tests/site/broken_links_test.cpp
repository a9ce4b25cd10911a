#include "site/broken_links.h"

#include "site/linkable_documents.h"
#include "tests/support/tables.h"
#include "tests/support/test_folder.h"

namespace pondera {

/// What is broken: "file: address #number reason" a line.
static QString broken(const QString& website_folder) {
    QStringList lines;
    for (const BrokenLink& link : broken_links(website_folder).broken)
        lines += u"%1: %2 #%3 %4"_s.arg(link.file, link.address).arg(link.number).arg(link.reason);
    return lines.join(u'\n');
}

TEST(BrokenLinks, AreFoundWithTheirPlaceAndReason) {
    const TestFolder root;
    const auto put = [&](const QString& file, const QString& text) { root.put(u"Shop/"_s + file, text.toUtf8()); };
    put(u"çindex.htm"_s,
        u"<a href=_4_Trips.htm>1</a> <a href=Gone.htm>2</a> <a href=\"Gone.htm\">3</a>"
        "<img src=media/img/sea.jpg><img src=media/img/Sea.JPG><img src='media/img/lost%20a.gif'>"
        "<a href='#here'>4</a><a href='#nowhere'>5</a><a name=here></a><a href='#top'>6</a><a href='#'>7</a>"
        "<a href='_4_Trips.htm#Caf%C3%A9'>8</a><a href='_4_Trips.htm#tea'>9</a><a href=_4_New.htm>11</a>"
        "<a href=https://www.x.org/none>12</a><a href='file:///home/ann/x.pdf'>14</a>"_s);
    put(u"index.htm"_s, u"<a href=only-in-the-published-page.htm>"_s);
    put(u"_4_Trips.htm"_s, u"<p id='Caf&eacute;'>x<!-- <a href=no.htm> --><link rel=stylesheet href=none.css>"_s);
    put(u"§_4_New.htm"_s, u"<a href=index.htm#x>"_s);
    put(u"_§_1_card.htm"_s, u"<a href=no.htm>"_s);
    put(u"media/img/sea.jpg"_s, {});
    put(u"media/img/menu_items.js"_s, u"['Home', '_4_Closed.htm'], ['Trips', '_4_Trips.htm']"_s);
    EXPECT_EQ(
        broken(root.path(u"Shop"_s)),
        u"index.htm: Gone.htm #0 The Website has no page \"Gone\".\n"
        "index.htm: Gone.htm #1 The Website has no page \"Gone\".\n"
        "index.htm: media/img/Sea.JPG #0 The file is called \"media/img/sea.jpg\": with other capitals it works here, "
        "but not on most servers.\n"
        "index.htm: media/img/lost%20a.gif #0 The Website has no file \"media/img/lost a.gif\".\n"
        "index.htm: #nowhere #0 The page \"HOME PAGE\" has no anchor \"nowhere\".\n"
        "index.htm: _4_Trips.htm#tea #0 The page \"Trips\" has no anchor \"tea\".\n"
        "index.htm: _4_New.htm #0 The page \"New\" was never saved: visitors do not get it yet.\n"
        "index.htm: file:///home/ann/x.pdf #0 Leads to a file of this computer: no visitor can reach it.\n"
        "_4_New.htm: index.htm#x #0 The page \"HOME PAGE\" has no anchor \"x\".\n"
        "_4_Trips.htm: none.css #0 The Website has no file \"none.css\".\n"
        "media/img/menu_items.js: _4_Closed.htm #0 The Website has no page \"Closed\"."_s);
}

TEST(BrokenLinks, OfManyPagesAreCountedAndTheCheckCanBeStopped) {
    const TestFolder root;
    root.put(u"Shop/çindex.htm"_s, QByteArray("<a href=_4_Gone.htm>").repeated(100));
    for (int n = 0; n < 20; ++n) root.put(u"Shop/_4_Page%1.htm"_s.arg(n), "<a href=_4_Page0.htm>");
    const LinkCheck check = broken_links(root.path(u"Shop"_s));
    EXPECT_EQ(check.pages, 21);
    EXPECT_EQ(check.addresses, 120);
    EXPECT_EQ(check.broken.size(), 100);
    EXPECT_EQ(check.broken.last().number, 99);
    const LinkCheck stopped = broken_links(root.path(u"Shop"_s), [](int done, int /*total*/) { return done < 5; });
    EXPECT_FALSE(stopped.whole);
    EXPECT_EQ(stopped.pages, 5);
}

TEST(LinkableDocuments, AreListedAndRefused) {
    const TestFolder root;
    root.put_all(u"."_s, u"b.PDF a.docx _4_Page.htm x.exe §_elenco.pnd"_s);
    EXPECT_EQ(list_linkable_documents(root.path()).join(u' '), u"a.docx b.PDF"_s);
    for (const QString& file : {u"b.PDF"_s, u""_s, u"none.pdf"_s, u"_4_Page.htm"_s, u"x.exe"_s})
        EXPECT_EQ(refusal_of_document(root.path(file)).has_value(), file != u"b.PDF") << file.toStdString();
}

}  // namespace pondera
