#include "site/name_rules.h"

#include "tests/support/tables.h"

namespace pondera {

const QString kLength = u"Choose a name with at least 3 characters and maximum 63"_s;

static QString invalid(const QString& offending) {
    return u"Invalid name. Change %1 or choose another name."_s.arg(offending);
}

TEST(NameRules, WordsAndCharactersAreRefusedGroupByGroup) {
    expect_results([](const QString& name) { return Verifica_Nome(name).value_or(u"good"_s); },
                   {u"Img → IMG", u"ACCESS → Access", u"1900 → 1900", u"640X480 → 640x480", u"a/b.c → '111' , '.'",
                    u"Tom&Co → ' ' , '&' , '''", u"My Page → ' ' , '&' , '''", u"My\u00A0Page → ' ' , '&' , '''"});
    for (const QString& name : {u"Sho\0p"_s, u"Shop\u202Egpj"_s, u"Shop"_s + QChar(0xD83D)})
        EXPECT_EQ(Verifica_Nome(name), u"the invisible characters"_s);
    for (const QString& group : {u"ç # § ; :"_s, u"111 ."_s, u"/ \\ |"_s, u"< > ?"_s, u"= ! £"_s, u"% $ ( )"_s,
                                 u"{ }"_s, u"[ ^ ]"_s, u"+ * °"_s, u"€ @"_s, u"\""_s})
        for (const QString& part : group.split(u' '))
            EXPECT_EQ(Verifica_Nome(u"Sh%1op"_s.arg(part)), u"'%1'"_s.arg(QString(group).replace(u" "_s, u"' , '"_s)));
    for (const QString& name : {u"Images"_s, u"Città-alta"_s, u"11211"_s, u"a_b~c,d"_s, u"Shop😀"_s})
        EXPECT_EQ(Verifica_Nome(name), std::nullopt) << name.toStdString();
}

TEST(NameRules, WebsiteAndEntryNames) {
    const QString blank = u"Invalid name. Change ' ' , '&' , ''' or Cancel the space after the name"_s;
    const std::vector<std::pair<QString, QString>> refused{
        {u"ab"_s, kLength}, {QString(64, u'a'), kLength}, {u"img"_s, invalid(u"IMG"_s)}, {u"Shop "_s, blank}};
    for (const auto& [name, message] : refused) {
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
    const auto refusal = [&](const QString& typed) {
        return refusal_of_page_name(typed, u"shop"_s, others).value_or(u"good"_s);
    };
    expect_results(refusal, {u"Prices.HTM → good", u".html → Insert a valid name of new page",
                             u"ab.htm → Choose a name with at least 3 characters and maximum 63",
                             u"Our-Shop-rules → Invalid page name. Do not type words used in Website name.",
                             u"My holidays-2 | day | Reindexed → Invalid page name. Do not type words used in the name "
                             u"of other pages of the Website.",
                             u"Prices.htm.htm → Invalid name. Change '111' , '.' or choose another name.",
                             // Their files would be left out of every listing.
                             u"Svuotare → Invalid name. Change vuota or choose another name.",
                             u"Gift_card → Invalid name. Change _card or choose another name."});
}

}  // namespace pondera
