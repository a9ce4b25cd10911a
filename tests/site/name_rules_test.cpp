#include "site/name_rules.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

const QString kLength = u"Choose a name with at least 3 characters and maximum 63"_s;
const QString kWebsiteWords = u"Invalid page name. Do not type words used in Website name."_s;
const QString kPageWords = u"Invalid page name. Do not type words used in the name of other pages of the Website."_s;

QString invalid(const QString& offending) {
    return u"Invalid name. Change %1 or choose another name."_s.arg(offending);
}

TEST(NameRules, WordsAndCharactersAreRefusedGroupByGroup) {
    const std::vector<std::pair<QString, QString>> refused{
        {u"Img"_s, u"IMG"_s},
        {u"vuota"_s, u"VUOTA"_s},
        {u"ACCESS"_s, u"Access"_s},
        {u"september"_s, u"SEPTEMBER"_s},
        {u"1900"_s, u"1900"_s},
        {u"640X480"_s, u"640x480"_s},
        {u"My Page"_s, u"' ' , '&' , '''"_s},
        {u"Tom&Co"_s, u"' ' , '&' , '''"_s},
        {u"My\u00A0Page"_s, u"' ' , '&' , '''"_s},
        {u"gar;con"_s, u"'ç' , '#' , '§' , ';' , ':'"_s},
        {u"Page1112"_s, u"'111' , '.'"_s},
        {u"v1.2"_s, u"'111' , '.'"_s},
        {u"a\\b"_s, u"'/' , '\\' , '|'"_s},
        {u"why?"_s, u"'<' , '>' , '?'"_s},
        {u"10£"_s, u"'=' , '!' , '£'"_s},
        {u"half(1)"_s, u"'%' , '$' , '(' , ')'"_s},
        {u"a{b"_s, u"'{' , '}'"_s},
        {u"a^b"_s, u"'[' , '^' , ']'"_s},
        {u"20°"_s, u"'+' , '*' , '°'"_s},
        {u"me@home"_s, u"'€' , '@'"_s},
        {u"say\"so"_s, u"'\"'"_s},
        {u"Sho\0p"_s, u"the invisible characters"_s},
        {u"Shop\u202Egpj"_s, u"the invisible characters"_s},
        {u"Shop"_s + QChar(0xD83D), u"the invisible characters"_s},
        // Two groups hit: the earlier one is shown.
        {u"a/b.c"_s, u"'111' , '.'"_s},
    };
    for (const auto& [name, offending] : refused) EXPECT_EQ(Verifica_Nome(name), offending) << name.toStdString();
    for (const QString& name : {u"Images"_s, u"Città-alta"_s, u"11211"_s, u"a_b~c,d"_s, u"Shop😀"_s})
        EXPECT_EQ(Verifica_Nome(name), std::nullopt) << name.toStdString();
}

TEST(NameRules, WebsiteAndEntryNames) {
    const QString blank = u"Invalid name. Change ' ' , '&' , ''' or Cancel the space after the name"_s;
    for (const auto& [name, message] : std::vector<std::pair<QString, QString>>{{u""_s, kLength},
                                                                                {u"ab"_s, kLength},
                                                                                {QString(64, u'a'), kLength},
                                                                                {u"img"_s, invalid(u"IMG"_s)},
                                                                                {u"Shop "_s, blank}}) {
        EXPECT_EQ(refusal_of_website_name(name), message) << name.toStdString();
        EXPECT_EQ(refusal_of_entry_name(name), message) << name.toStdString();
    }
    for (const QString& name : {u"abc"_s, QString(63, u'a')}) EXPECT_EQ(refusal_of_website_name(name), std::nullopt);
    // These would lie beside the Websites, where no listing shows them.
    EXPECT_EQ(refusal_of_website_name(u"_Shop"_s), invalid(u"_"_s));
    EXPECT_EQ(refusal_of_website_name(u"ftp"_s), invalid(u"ftp"_s));
    EXPECT_EQ(refusal_of_entry_name(u"_Shop"_s), std::nullopt);
}

TEST(NameRules, PageNamesAreHeldAgainstWebsiteAndOtherPages) {
    const QStringList others{u"index.htm"_s, u"_4_Holidays.htm"_s, u"§_2_Sea.htm"_s};
    const std::vector<std::pair<QString, std::optional<QString>>> cases{
        {u"Prices"_s, std::nullopt},
        {u"Prices.HTM"_s, std::nullopt},
        {u".html"_s, u"Insert a valid name of new page"_s},
        {u"ab.htm"_s, kLength},
        {u"Our-Shop-rules"_s, kWebsiteWords},
        {u"My holidays-2"_s, kPageWords},
        {u"day"_s, kPageWords},
        {u"Seaside"_s, kPageWords},
        {u"Reindexed"_s, kPageWords},
        {u"Img.htm"_s, invalid(u"IMG"_s)},
        {u"Prices.htm.htm"_s, invalid(u"'111' , '.'"_s)},
        // Their files would be left out of every listing.
        {u"Svuotare"_s, invalid(u"vuota"_s)},
        {u"Gift_card"_s, invalid(u"_card"_s)},
    };
    for (const auto& [typed, message] : cases)
        EXPECT_EQ(refusal_of_page_name(typed, u"shop"_s, others), message) << typed.toStdString();
    EXPECT_EQ(typed_page_name(u"Prices.HTM"_s), u"Prices"_s);
}

}  // namespace

}  // namespace pondera
