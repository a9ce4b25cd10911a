#include "publish/ftp/remote_site.h"

#include "tests/support/tables.h"

namespace pondera {

TEST(RemoteSite, WhereAWebsiteLies) {
    const auto way = [](const QString& typed) {
        const auto found = way_to_site(typed, u"Shop"_s);
        return found ? found->join(u'|') : u"?"_s;
    };
    expect_results(way, {
                            u" → Vantiles|Shop",
                            u" My site  → Vantiles|My site",
                            u"a/b → Vantiles|a/b",
                            u"a\\b/ → Vantiles|a/b",
                            u"/htdocs → /htdocs",
                            u"//htdocs//shop/ → /htdocs/shop",
                            u"../x | a/../../b | . | a\nb | C:\\x → ?",
                        });
}

TEST(RemoteSite, TheAddressThatVisitorsAreLikelyToUse) {
    const auto address = [](const QString& place) {
        return likely_web_address(place.section(u' ', 0, 0), place.section(u' ', 1));
    };
    expect_results(address, {
                                u"ftp.x.org /Vantiles/My Shop → http://www.x.org/Vantiles/My%20Shop/",
                                u"sftp://ssh.x.org:22 /home/anna/public_html → http://www.x.org/",
                                u"x.org /htdocs/shop → http://x.org/shop/",
                                u"ftp.müller.de / → http://www.xn--mller-kva.de/",
                                u"a@b /a → ",
                            });
    expect_results(browsable_address, {
                                          u" www.x.org/a b → http://www.x.org/a%20b",
                                          u"https://x.org → https://x.org",
                                          u"file:///etc/passwd | javascript:alert(1) | ftp://x | http:// |  → ",
                                      });
}

}  // namespace pondera
