#include "elements/anchor_name.h"
#include "elements/link_address.h"
#include "tests/support/tables.h"

namespace pondera {

TEST(LinkAddress, IsCompletedAndEncoded) {
    expect_results([](const QString& typed) { return address_from_typed(typed).value_or(u"(refused)"_s); },
                   {u" www.x.org  → https://www.x.org", u"x.org/a b?c=d e#f → https://x.org/a%20b?c=d%20e#f",
                    u"HTTP://x.org:8080/ → http://x.org:8080/", u"https://intranet/x → https://intranet/x",
                    u"localhost:8080/x → https://localhost:8080/x", u"//x.org/a → https://x.org/a",
                    u"https://façade.fr/ç → https://xn--faade-zra.fr/%C3%A7",
                    u"https://x.org/%C3%A7?q=%20 → https://x.org/%C3%A7?q=%20", u"www.x.pdf → https://www.x.pdf",
                    u"https://192.168.1.1/ → https://192.168.1.1/", u"Ann@x.org → mailto:Ann@x.org",
                    u"mailto:ann@x.org?subject=Hello you → mailto:ann@x.org?subject=Hello%20you",
                    u"+39 06 (123)-456 → tel:+3906123456", u"tel: 06/123.456 → tel:06123456"});
}

TEST(LinkAddress, IsRefusedWithItsReason) {
    expect_results(
        [](const QString& typed) {
            const auto address = address_from_typed(typed);
            return address ? *address : QString(address.error()).replace(typed, u"it"_s).section(u' ', 0, 2);
        },
        {u"javascript:alert(1) | data:text/html,x → A link cannot", u"ftp://x.org → Links to addresses",
         u"file:///home/ann/x.htm | C:\\Pictures\\x.jpg | c:x | \\\\server\\x | /home/ann/x.htm | ../x.htm | trips.htm"
         u" → This is a",
         u"hello | two words | www.x.org is nice | https:// | http:www.x.org | https://x_.o rg | https://<b> → \"it\" "
         u"is no",
         u"ann@x | a@b@x.org | mailto: | tel:ann → \"it\" is no"});
    EXPECT_TRUE(address_from_typed(u" "_s).error().startsWith(u"Type an address,"_s));
}

TEST(AnchorName, IsRefusedOrMadeFromWords) {
    const QStringList in_use{u"top"_s, u"Our-trips"_s};
    expect_results([&](const QString& name) { return refusal_of_anchor_name(name, in_use).value_or(u"good"_s); },
                   {u"Prices_2.1-b → good", u"città → good", u"  → Type a name for the anchor.",
                    u"our trips → An anchor's name holds no blanks. Write our-trips-2, for example.",
                    u"TOP → This page already has a place named TOP. Choose another name.",
                    u"a#b → The character \"#\" cannot stand in an anchor's name. Write ab, for example.",
                    u"façade → The character \"ç\" cannot stand in an anchor's name. Write facade, for example."});
    expect_results([&](const QString& words) { return free_anchor_name(words, in_use); },
                   {u"Our  trips → Our-trips-2", u"Dove siamo? → Dove-siamo", u"山 → place", u" → place"});
}

}  // namespace pondera
