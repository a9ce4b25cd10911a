#include "publish/ftp/ftp_settings.h"

#include "base/roots.h"
#include "tests/support/tables.h"
#include "tests/support/test_folder.h"

namespace pondera {
namespace {

struct Settings {
    TestFolder home;
    Roots roots{home.path()};

    Settings() { QDir().mkpath(roots.websites()); }
    [[nodiscard]] QString path(const QString& host) const { return ftp_settings_path(roots, host); }
};

TEST(FtpSettings, TheFileHoldsWhatWasTypedByteForByteForItsOwnerOnly) {
    const Settings settings;
    const QString path = settings.path(u"ftp.x.org"_s);
    ASSERT_TRUE(write_file(path, "open to all"));
    ASSERT_TRUE(save_ftp_settings(path, {u"ftp.x.org"_s, u"anna"_s, u"pa ss\"è"_s, u"/htdocs"_s}));
    EXPECT_EQ(settings.home.bytes(u"Pondera/FTP_ftp.x.org.txt"_s),
              "\"nomehost ftp.x.org\r\nuserid anna\r\npassword pa ss\"\xC3\xA8\r\nsito /htdocs\r\n\"\r\n");
    EXPECT_EQ(QFileInfo(path).permissions() & ~(QFile::ReadUser | QFile::WriteUser),
              QFile::ReadOwner | QFile::WriteOwner);
    EXPECT_EQ(ftp_settings_text({.host = u"h"_s, .site = u"s"_s}), u"\"nomehost h\r\nuserid \r\nsito s\r\n\"\r\n");
    FtpLogin read;
    ASSERT_TRUE(load_ftp_settings(path, read));
    EXPECT_EQ(read, (FtpLogin{u"ftp.x.org"_s, u"anna"_s, u"pa ss\"è"_s, u"/htdocs"_s}));
    EXPECT_EQ(QDir(settings.roots.websites()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(),
              1);
}

TEST(FtpSettings, TheFirstOccurrenceOfAKeyCountsAndAMissingOneLeavesItsField) {
    struct Case {
        QString text;
        FtpLogin read;
    };
    const QString h = u"was h"_s, u = u"was u"_s, p = u"was p"_s, s = u"was s"_s;
    for (const Case& c : std::initializer_list<Case>{{u"\"nomehost h\r\nuserid u\r\n\"\r\n"_s, {u"h"_s, u"u"_s, p, s}},
                                                     {u"\"nomehost ftp.sitoweb.it\r\nuserid u\r\nsito x\r\n\"\r\n"_s,
                                                      {u"ftp.sitoweb.it"_s, u"u"_s, p, u"eb.it"_s}},
                                                     {u"userid u\r\nnomehost h"_s, {u"h"_s, u"u"_s, p, s}},
                                                     {u"nomehost"_s, {u""_s, u, p, s}},
                                                     {u""_s, {h, u, p, s}}}) {
        FtpLogin login{h, u, p, s};
        read_ftp_settings(c.text, login);
        EXPECT_EQ(login, c.read) << c.text.toStdString();
    }
}

TEST(FtpSettings, NoHostLeadsOutOfTheFolderAndEachIsListedAsTyped) {
    const Settings settings;
    QStringList hosts{u"../../etc/x"_s, u"/etc/passwd"_s, u"C:\\x"_s,  u"a%2Fb"_s,     u".."_s,
                      u"a\nb"_s,        u"müller.de"_s,   u"h:2121"_s, u"sftp://x/y"_s};
    for (const QString& host : hosts) ASSERT_TRUE(save_ftp_settings(settings.path(host), {.host = host}));
    settings.home.put(u"Pondera/FTP_PONDERA.txt"_s);
    settings.home.put(u"Pondera/FTP_x.TXT"_s);
    settings.home.put(u"Pondera/ftp_x.txt"_s);
    settings.home.put(u"Pondera/FTP_folder.txt/file"_s);
    settings.home.put(u"Pondera/my FTP_old.txt.txt"_s);
    QStringList listed = ftp_hosts(settings.roots);
    hosts << u"my old"_s;
    hosts.sort();
    listed.sort();
    EXPECT_EQ(listed, hosts);
    EXPECT_EQ(QDir(settings.home.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList(u"Pondera"_s));

    for (int times = 0; times < 2; ++times) EXPECT_TRUE(delete_ftp_settings(settings.path(u"../../etc/x"_s)));
    EXPECT_EQ(ftp_hosts(settings.roots).size(), hosts.size() - 1);
}

}  // namespace
}  // namespace pondera
