#include "base/roots.h"
#include "publish/hosted/hosted_login.h"
#include "publish/hosted/hosting_service.h"
#include "publish/hosted/service_files.h"
#include "tests/support/tables.h"
#include "tests/support/test_folder.h"

namespace pondera {

TEST(HostedRules, EntriesOfTheServiceAreNeitherListedNorSent) {
    const QString account = u"account.txt"_s;
    const auto kind = [&](const QString& name) { return belongs_to_service(name, account) ? u"service"_s : u"ours"_s; };
    expect_results(kind, {
                             u"cgi-bin | cgi-bin/ | CGI-BIN/ | dominio.txt | domain.txt | Domain.TXT → service",
                             u"Account.txt | ./ | ../ | .ftpquota | ftpquota | old-ftpquota.bak → service",
                             u"index.htm | media/ | mydomain.txt | domain.txt.htm | cgi-bin2/ | .htaccess → ours",
                         });
    RemoteListing listing;
    for (const QString& name : u"domain.txt old_index.htm index.htm .ftpquota cgi-bin media"_s.split(u' '))
        listing.entries << RemoteEntry{.name = name, .folder = !name.contains(u'.')};
    EXPECT_EQ(hosted_listing(listing, account).join(u' '), u"old_index.htm index.htm media/"_s);

    const TestFolder folder;
    folder.put_all(u"."_s, u"index.htm domain.txt media/img/domain.txt"_s);
    EXPECT_EQ(names_of_service(folder.path(), account), QStringList(u"domain.txt"_s));
}

TEST(HostedRules, AccountFileGrantsEntryToThePasswordInIt) {
    const auto entry = [](const QString& account) {
        return grants_entry(QString(account).replace(u'~', u"\r\n"_s), u"se cret"_s) ? u"in"_s : u"out"_s;
    };
    expect_results(entry, {
                              u"password=se cret | domain=bakery~password=se cret~ | password=se~ cret → in",
                              u"password=SE CRET | password= se cret | password=se cret~owner=x | se cret → out",
                          });
    EXPECT_FALSE(grants_entry(u""_s, u""_s));
}

TEST(HostedRules, LoginIsRefusedWithWhatIsMissing) {
    const auto refusal = [](const QString& fields) {
        const QStringList parts = fields.split(u',');
        return refusal_of_login(
                   {.server = {.host = parts[0], .user = parts[1], .site = parts[2]}, .domain_password = parts[3]}) +
               u'|';
    };
    expect_results(refusal, {
                                u"h,u,bakery,p | h,u,my-shop2.sub,p → |",
                                u",u,bakery,p → Insert the name of the remote host you want to connect to.|",
                                u"h,,bakery,p | h,u,,p | h,u,bakery, → Insert all required data|",
                                u"h,u,../x,p | h,u,a/b,p | h,u,my shop,p | h,u,..,p → The name of a sub-domain has "
                                u"letters, digits and hyphens only: bakery, for example.|",
                            });
}

TEST(HostingServiceSettings, ShippedFileIsReadAndWhatIsMissingKeepsItsValue) {
    const Roots shipped(QStringLiteral(PONDERA_SOURCE_DIR "/system"));
    const auto service = read_hosting_service(shipped);
    ASSERT_TRUE(service);
    EXPECT_EQ(service->typed_host(), u"ftp.hosting.example"_s);
    EXPECT_EQ(service->web_root + u'/' + service->account_file, u"public_html/domain.txt"_s);
    EXPECT_EQ(service->address_of(u"bakery"_s), u"http://bakery.hosting.example/"_s);

    const HostingService other = parse_hosting_service(u"# host = no\r\nhost = x.org\r\nport=2121\r\nweb root =\r\n"_s);
    EXPECT_EQ(other.typed_host() + u' ' + other.web_root, u"x.org:2121 public_html"_s);

    const auto domain = [&](const QString& typed) { return service->domain_of(typed); };
    expect_results(domain, {
                               u"bakery | bakery.hosting.example | HTTP://bakery.hosting.example/ → bakery",
                           });
}

}  // namespace pondera
