#include "site/page_name.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

TEST(PageName, FileNamesAreReadAsAPersonSeesThem) {
    struct Case {
        QString file;
        PageKind kind;
        QString name;
        QString status;
        QString entry;
    };
    const std::vector<Case> cases{
        {u"index.htm"_s, PageKind::kNone, u"index"_s, u"HOME PAGE"_s, u"HOME PAGE"_s},
        {u"çindex.htm"_s, PageKind::kNone, u"index"_s, u"HOME PAGE"_s, u"HOME PAGE"_s},
        {u"_4_Subject.htm"_s, PageKind::kSubject, u"Subject"_s, u"Subject"_s, u"Subject  ;  [page]"_s},
        {u"§_1_Prices.HTML"_s, PageKind::kCard, u"Prices"_s, u"Prices"_s, u"Prices  ;  [page]"_s},
        {u"§_2_Holidays.htm"_s, PageKind::kPhotoShow, u"Holidays"_s, u"Holidays  [photo-show]"_s,
         u"Holidays  ;  [photo-show]"_s},
        {u"_0_Board.htm"_s, PageKind::kProtected, u"Board"_s, u"Board  [protected page]"_s,
         u"Board  ;  [protected page]"_s},
        {u"_y_News.htm"_s, PageKind::kExternal, u"News"_s, u"News  [external web page]"_s,
         u"News  ;  [external web page]"_s},
        {u"§_x_Info.htm"_s, PageKind::kPopup, u"Info"_s, u"Info  [popup]"_s, u"Info  ;  [popup]"_s},
        // The list goes by the search for a code, the status bar by how the name begins.
        {u"_x_Tour_4_.htm"_s, PageKind::kSubject, u"Tour_4_"_s, u"Tour_4_  [popup]"_s, u"Tour_4_  ;  [page]"_s},
        {u"_1_Tour_2_.htm"_s, PageKind::kPhotoShow, u"Tour_2_"_s, u"Tour_2_"_s, u"Tour_2_  ;  [photo-show]"_s},
        {u"_4_Tour_page2_.htm"_s, PageKind::kSubject, u"Tour_page2_"_s, u"Tour_page2_"_s, u"Tour_page2_  ;  [page]"_s},
        {u"about.htm"_s, PageKind::kNone, u"about"_s, u"about"_s, u"about  ;  [page]"_s},
        {u"Price list.PDF"_s, PageKind::kNone, u"Price list.PDF"_s, u"Price list.PDF"_s,
         u"Price list.PDF  ;  [Acrobat page]"_s},
        {u"Letter.doc"_s, PageKind::kNone, u"Letter.doc"_s, u"Letter.doc"_s, u"Letter.doc  ;  [Word page]"_s},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(page_kind(c.file), c.kind) << c.file.toStdString();
        EXPECT_EQ(strip_tutto(c.file), c.name);
        EXPECT_EQ(status_label(c.file), c.status);
        EXPECT_EQ(page_list_display(c.file), c.entry);
    }
    EXPECT_EQ(page_list_entry(kHomePage), u"index  ; [index]"_s);
}

TEST(PageName, EditingCopyAndPublishedPageNameEachOther) {
    for (const auto& [published, copy] :
         std::vector<std::pair<QString, QString>>{{u"index.htm"_s, u"çindex.htm"_s},
                                                  {u"_4_Subject 1.htm"_s, u"§_4_Subject 1.htm"_s},
                                                  {u"about.htm"_s, u"§about.htm"_s}}) {
        EXPECT_EQ(editing_copy_name(published), copy);
        EXPECT_EQ(published_name(copy), published);
    }
    EXPECT_EQ(page_file_name(PageKind::kProtected, u"Board"_s), u"_0_Board.htm"_s);
}

TEST(PageName, FilesThatAreNoPagesAreNeverListed) {
    for (const QString& file :
         {u"Standard_Interface_card.htm.bak"_s, u"_1_vuota.htm"_s, u"çindex.htm"_s, u"§_4_A.htm"_s, u"_§_1_card.htm"_s,
          u"Shop_card.htm"_s, u"Thumbs.DB"_s, u"ws_ftp.log"_s})
        EXPECT_TRUE(is_never_listed(file)) << file.toStdString();
    for (const QString& file :
         {u"index.htm"_s, u"_4_Cards.htm"_s, u"_4_card.html"_s, u"thumbs.db.htm"_s, u"letter.doc"_s})
        EXPECT_FALSE(is_never_listed(file)) << file.toStdString();
}

}  // namespace

}  // namespace pondera
