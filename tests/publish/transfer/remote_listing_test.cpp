#include "publish/transfer/remote_listing.h"

#include "publish/transfer/remote_name.h"
#include "tests/support/tables.h"

namespace pondera {

/// Each entry as "name size" or "name/".
static QStringList read(const QByteArray& listing) {
    QStringList result;
    for (const RemoteEntry& entry : parse_listing(listing).entries)
        result << entry.name + (entry.folder ? u"/"_s : u" "_s + QString::number(entry.size));
    return result;
}

TEST(RemoteListing, EveryServersLines) {
    const auto line = [](const QString& text) { return read(text.toUtf8() + "\r\n").value(0, u"·"_s); };
    expect_results(line, {
                             // Unix, with and without owner or group, with other dates and rights
                             u"-rw-r--r--    1 1000     1000         5432 Jan 02 12:00 index.htm → index.htm 5432",
                             u"drwxr-xr-x   12 web      users        4096 Dec 31  2023 media → media/",
                             u"-rw-r--r--   1 user       120 Jan  2 03:04 no group.jpg → no group.jpg 120",
                             u"-rw-r--r--+  1 user group 120 2024-01-02 03:04 çindex.htm → çindex.htm 120",
                             u"drwxrwsr-t   2 a b 4096 2 janv. 12:00 dir → dir/",
                             u"-rw-r--r--   1 0 0 7 Jan 02 12:00  one blank first →  one blank first 7",
                             u"-rw-r--r--   1 u g 3 Mar 01 10:00 12 May 2020 a.htm → 12 May 2020 a.htm 3",
                             // Windows
                             u"01-02-24  03:04PM       <DIR>          media files → media files/",
                             u"01-02-2024  15:04              1.234.567 a.mp3 → a.mp3 1234567",
                             // machines
                             u"type=file;size=12;modify=20240102030405;UNIX.mode=0644; a b;c.htm → a b;c.htm 12",
                             u"Type=dir;Modify=20240102030405; media → media/",
                             u"type=cdir;modify=20240102030405; . → ·",
                             u"type=file;modify=20240102030405; sizeless → sizeless -1",
                         });
}

TEST(RemoteListing, LinesThatAreNoEntryGiveNone) {
    for (const char* line :
         {"total 12", "", "lrwxrwxrwx 1 0 0 7 Jan 02 12:00 link -> /etc", "226 done",
          "-rw-r--r-- 1 0 0 7 Jan 02 12:00 pnd-0123456789abcdef.part", "drwxr-xr-x 1 0 0 7 Jan 02 12:00 ..",
          "type=OS.unix=slink:/etc;size=4; link", "-rw-r--r--", "01-02-24  03:04PM <DIR>"})
        EXPECT_EQ(read(line), QStringList()) << line;
}

TEST(RemoteListing, NamesThatLeadOutsideAreNeverOffered) {
    for (const QByteArray& name :
         {QByteArray("../../evil.htm"), QByteArray("/etc/passwd"), QByteArray("a/b"), QByteArray("..\\evil"),
          QByteArray("C:evil"), QByteArray("a\rDELE b"), QByteArray("a\0b", 3), QByteArray("a\x7f"),
          QByteArray("\xff\xfe\x0d\x41\x41\x42"), QByteArray(10'000, 'x'), QByteArray(256, 'x')}) {
        EXPECT_EQ(read("-rw-r--r-- 1 0 0 7 Jan 02 12:00 " + name), QStringList()) << name.left(20).toStdString();
        EXPECT_EQ(read("type=file;size=1; " + name), QStringList()) << name.left(20).toStdString();
    }
}

TEST(RemoteName, TemporaryNamesAreTheirOwn) {
    const QString first = temporary_beside(u"/www/index.htm"_s);
    EXPECT_TRUE(first.startsWith(u"/www/pnd-") && is_temporary_name(first.section(u'/', -1)));
    EXPECT_EQ(first, temporary_beside(u"/www/index.htm"_s));
    EXPECT_NE(first, temporary_beside(u"/www/Index.htm"_s));
}

TEST(RemoteName, PathsClimbToTheRootAtMost) {
    expect_results(
        [](const QString& name) { return resolve_remote(u"/home/x"_s, name); },
        {u"a b → /home/x/a b", u"/a//b/ → /a/b", u".. → /home", u"../../../.. → /", u"./m/../n → /home/x/n"});
}

}  // namespace pondera
