#include "publish/transfer/transfer_command.h"

#include "publish/transfer/remote_host.h"
#include "tests/support/tables.h"

namespace pondera {

TEST(TransferCommand, NamesAreToldApart) {
    const auto read = [](const QString& command) {
        const auto parsed = parse_command(command, [](const QString& path) {
            return path == u"/site/my page.htm" || path == u"/site/my" || path == u"/site/a b" || path == u"/site/a";
        });
        return parsed ? parsed->remote + u'|' + parsed->local : u"?"_s;
    };
    expect_results(read, {
                             u"DIR → |",
                             u" → ?",
                             u"CD my media → my media|",
                             u"CD \"my \"\"own\"\" media\" → my \"own\" media|",
                             u"DELETE -rf x → -rf x|",
                             u"GET a b.htm /site/a b.htm → a b.htm|/site/a b.htm",
                             u"GET a C:\\Pondera_Folder\\my site\\a → a|C:\\Pondera_Folder\\my site\\a",
                             u"GET /www/a b /site/x /y → ?",
                             u"GET /www/a b /site/x/a b → /www/a b|/site/x/a b",
                             u"GET a \"c d\" → a|c d",
                             u"GET a b c → ?",
                             u"SEND /site/my page.htm my page.htm → my page.htm|/site/my page.htm",
                             u"SEND /site/a b x → ?",
                             u"SEND \"/none/x y\" \"x y\" → x y|/none/x y",
                             u"CD a\rDELE b → ?",
                             u"GET a\n /site/a → ?",
                         });
    EXPECT_FALSE(parse_command(u"CD a"_s + QChar(0) + u"b"_s, [](const QString&) { return false; }));
}

TEST(RemoteHost, AsPeopleTypeThem) {
    const auto read = [](const QString& typed) {
        const auto host = parse_host(typed);
        if (!host) return host.error() == HostFault::kMalformed ? u"?"_s : u"!"_s;
        return (host->protocol == HostProtocol::kSftp ? u"s "_s : QString()) + host->name + u' ' +
               QString::number(host->port);
    };
    expect_results(read, {
                             u"ftp.x.org → ftp.x.org 21",
                             u"sftp://x → s x 22",
                             u"[::1]:2121 → ::1 2121",
                             u"fe80::1 → fe80::1 21",
                             u"müller.de → xn--mller-kva.de 21",
                             u"http://x → !",
                             u"x:0 → ?",
                             u" → ?",
                             u"x/htdocs → ?",
                             u"-x → ?",
                             u"a\r\nb → ?",
                             u"x%0d → ?",
                             u"[::1 → ?",
                         });
}

}  // namespace pondera
