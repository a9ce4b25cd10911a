#include "site/page_name.h"

#include "tests/support/qt_text.h"

namespace pondera {

TEST(PageName, FileNamesAreReadAsAPersonSeesThem) {
    using enum PageKind;
    const std::vector<std::tuple<QString, PageKind, QString, QString, QString>> cases{
        {u"_4_Subject.htm"_s, kSubject, u"Subject"_s, u""_s, u"  ;  [page]"_s},
        {u"§_1_Prices.HTML"_s, kCard, u"Prices"_s, u""_s, u"  ;  [page]"_s},
        {u"§_2_Holidays.htm"_s, kPhotoShow, u"Holidays"_s, u"  [photo-show]"_s, u"  ;  [photo-show]"_s},
        {u"_0_Board.htm"_s, kProtected, u"Board"_s, u"  [protected page]"_s, u"  ;  [protected page]"_s},
        {u"_y_News.htm"_s, kExternal, u"News"_s, u"  [external web page]"_s, u"  ;  [external web page]"_s},
        {u"§_x_Info.htm"_s, kPopup, u"Info"_s, u"  [popup]"_s, u"  ;  [popup]"_s},
        // The list goes by the search for a code, the status bar by how the name begins.
        {u"_x_Tour_4_.htm"_s, kSubject, u"Tour_4_"_s, u"  [popup]"_s, u"  ;  [page]"_s},
        {u"_1_Tour_2_.htm"_s, kPhotoShow, u"Tour_2_"_s, u""_s, u"  ;  [photo-show]"_s},
        {u"about.htm"_s, kNone, u"about"_s, u""_s, u"  ;  [page]"_s},
        {u"Price list.PDF"_s, kNone, u"Price list.PDF"_s, u""_s, u"  ;  [Acrobat page]"_s},
        {u"Letter.doc"_s, kNone, u"Letter.doc"_s, u""_s, u"  ;  [Word page]"_s},
    };
    for (const auto& [file, kind, name, status_tag, list_tag] : cases) {
        EXPECT_EQ(page_kind(file), kind) << file.toStdString();
        EXPECT_EQ(published_name(editing_copy_name(file)), published_name(file));
        EXPECT_EQ(strip_tutto(file), name);
        EXPECT_EQ(status_label(file), name + status_tag);
        EXPECT_EQ(page_list_display(file), name + list_tag);
    }
    for (const QString& home : {kHomePage, editing_copy_name(kHomePage)})
        EXPECT_EQ(QStringList({status_label(home), page_list_display(home), page_list_entry(home)}),
                  QStringList({u"HOME PAGE"_s, u"HOME PAGE"_s, u"index  ; [index]"_s}));
}

}  // namespace pondera
