#include "publish/ftp/ftp_settings.h"

#include "base/roots.h"
#include "tests/support/tables.h"
#include "tests/support/test_folder.h"

namespace pondera {

class FtpSettings : public testing::Test {
  protected:
    void SetUp() override { QDir().mkpath(roots.websites()); }
    [[nodiscard]] QString path(const QString& host) const { return ftp_settings_path(roots, host); }

    const TestFolder home;
    const Roots roots{home.path()};
};

TEST_F(FtpSettings, TheFileHoldsWhatWasTypedByteForByteForItsOwnerOnly) {
    const QString file = home.put(u"Pondera/FTP_ftp.x.org.txt"_s, "open to all");
    ASSERT_TRUE(save_ftp_settings(path(u"ftp.x.org"_s), {u"ftp.x.org"_s, u"anna"_s, u"pa ss\"è"_s, u"/htdocs"_s}));
    EXPECT_EQ(home.bytes(u"Pondera/FTP_ftp.x.org.txt"_s),
              "\"nomehost ftp.x.org\r\nuserid anna\r\npassword pa ss\"\xC3\xA8\r\nsito /htdocs\r\n\"\r\n");
    EXPECT_EQ(QFileInfo(file).permissions() & ~(QFile::ReadUser | QFile::WriteUser),
              QFile::ReadOwner | QFile::WriteOwner);
    EXPECT_EQ(ftp_settings_text({.host = u"h"_s, .site = u"s"_s}), u"\"nomehost h\r\nuserid \r\nsito s\r\n\"\r\n");
    FtpLogin read;
    ASSERT_TRUE(load_ftp_settings(file, read));
    EXPECT_EQ(read, (FtpLogin{u"ftp.x.org"_s, u"anna"_s, u"pa ss\"è"_s, u"/htdocs"_s}));
    EXPECT_EQ(QDir(roots.websites()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(), 1);
}

TEST_F(FtpSettings, TheFirstOccurrenceOfAKeyCountsAndAMissingOneLeavesItsField) {
    const auto read = [](const QString& text) {
        FtpLogin login{u"h0"_s, u"u0"_s, u"p0"_s, u"s0"_s};
        read_ftp_settings(QString(text).replace(u'~', u"\r\n"_s), login);
        return QStringList{login.host, login.user, login.password, login.site}.join(u',');
    };
    expect_results(read, {u"\"nomehost h~userid u~\"~ → h,u,p0,s0",
                          u"\"nomehost ftp.sitoweb.it~userid u~sito x~\"~ → ftp.sitoweb.it,u,p0,eb.it",
                          u"userid u~nomehost h → h,u,p0,s0", u"nomehost → ,u0,p0,s0", u" → h0,u0,p0,s0"});
}

TEST_F(FtpSettings, NoHostLeadsOutOfTheFolderAndEachIsListedAsTyped) {
    QStringList hosts{u"../../etc/x"_s, u"/etc/passwd"_s, u"C:\\x"_s,  u"a%2Fb"_s,     u".."_s,
                      u"a\nb"_s,        u"müller.de"_s,   u"h:2121"_s, u"sftp://x/y"_s};
    for (const QString& host : hosts) ASSERT_TRUE(save_ftp_settings(path(host), {.host = host}));
    for (const QString& other :
         {u"FTP_PONDERA.txt"_s, u"FTP_x.TXT"_s, u"ftp_x.txt"_s, u"FTP_folder.txt/file"_s, u"my FTP_old.txt.txt"_s})
        home.put(u"Pondera/"_s + other);
    QStringList listed = ftp_hosts(roots);
    hosts << u"my old"_s;
    hosts.sort();
    listed.sort();
    EXPECT_EQ(listed, hosts);
    EXPECT_EQ(QDir(home.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList(u"Pondera"_s));

    for (int times = 0; times < 2; ++times) EXPECT_TRUE(delete_ftp_settings(path(u"../../etc/x"_s)));
    EXPECT_EQ(ftp_hosts(roots).size(), hosts.size() - 1);
}

}  // namespace pondera
