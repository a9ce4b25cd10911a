#include "publish/sending/publication_record.h"

#include "tests/support/tables.h"
#include "tests/support/test_folder.h"

namespace pondera {

const QString kRecord = u"§_elenco.pnd"_s;
const QString kJournal = u"§_elencotemp.pnd"_s;
const Destination kHere = Destination::on_server(u"ftp.shop.example"_s, u"me"_s, u"/Vantiles/Shop"_s);
const Destination kThere = Destination::in_folder(u"/media/stick"_s);

static PublishedFile file(const QString& path, qint64 size = 5) {
    return {.path = path,
            .size = size,
            .modified = QDateTime::fromMSecsSinceEpoch(1'700'000'000'123, Qt::UTC),
            .checksum = QByteArray(64, 'a')};
}

/// What the record of a folder holds for a destination: "a.htm 5, b.htm 7, begun c.htm".
static QString held(const TestFolder& site, const Destination& destination) {
    const auto record = PublicationRecord::open(site.path(), destination);
    if (!record) return fault_sentence(record.error());
    QStringList files;
    for (const PublishedFile& known : record->files()) {
        EXPECT_EQ(known, file(known.path, known.size));
        files << u"%1 %2"_s.arg(known.path).arg(known.size);
    }
    for (const QString& begun : record->unfinished()) files << u"begun "_s + begun;
    files.sort();
    return files.join(u", "_s);
}

TEST(Destination, IsTheSameForTheSamePlaceOnly) {
    const auto key = [](const QString& host) { return Destination::on_server(host, u"I\nx"_s, u"/a b/"_s).key(); };
    expect_results(key, {u"Shop.example | ftp://shop.example:21/ → ftp://shop.example:21/a%20b as I%0Ax",
                         u"no host → ftp://no%20host/a%20b as I%0Ax", u"sftp://::1 → sftp://::1:22/a%20b as I%0Ax"});
}

TEST(PublicationRecord, KeepsWhatEachDestinationConfirmed) {
    const TestFolder site;
    const QStringList names = {u"a.htm"_s, u"media/img/ a  %41 \"è€\".jpg "_s, u"-"_s};
    {
        auto here = PublicationRecord::open(site.path(), kHere);
        for (const QString& name : names) EXPECT_TRUE(here->begin(name) && here->confirm(file(name)));
        EXPECT_TRUE(here->begin(u"b.htm"_s) && here->forget(names[0]));
        EXPECT_TRUE(PublicationRecord::was_interrupted(site.path()));
        EXPECT_TRUE(here->close());
        EXPECT_FALSE(PublicationRecord::was_interrupted(site.path()));
        EXPECT_TRUE(here->confirm(file(u"a.htm"_s, 7)) && here->close());  // a publication may go on after it
        auto there = PublicationRecord::open(site.path(), kThere);
        EXPECT_TRUE(there->confirm(file(u"t.htm"_s)) && there->close());
    }
    EXPECT_EQ(held(site, kHere), u"- 5, a.htm 7, begun b.htm, media/img/ a  %41 \"è€\".jpg  5"_s);
    EXPECT_EQ(held(site, kThere), u"t.htm 5"_s);
}

/// A program that ends after any byte of its journal: the whole lines count, of another destination's publication too.
TEST(PublicationRecord, TakesInTheJournalOfAnInterruptedPublication) {
    const TestFolder site;
    {
        auto record = PublicationRecord::open(site.path(), kHere);
        EXPECT_TRUE(record->confirm(file(u"a.htm"_s)) && record->close());
        EXPECT_TRUE(record->begin(u"a.htm"_s) && record->confirm(file(u"a.htm"_s, 7)) && record->forget(u"a.htm"_s));
    }
    const QByteArray before = site.bytes(kRecord);
    const QByteArray journal = site.bytes(kJournal);
    QStringList seen;
    for (qsizetype end = 0; end <= journal.size(); ++end) {
        site.put(kRecord, before);
        site.put(kJournal, journal.first(end));
        EXPECT_EQ(held(site, kThere), u""_s);
        EXPECT_FALSE(PublicationRecord::was_interrupted(site.path()));
        if (const QString now = held(site, kHere); !seen.endsWith(now)) seen << now;
    }
    EXPECT_EQ(seen, QStringList({u"a.htm 5"_s, u"a.htm 5, begun a.htm"_s, u"a.htm 7"_s, u""_s}));
}

TEST(PublicationRecord, TrustsNoDamagedLine) {
    const TestFolder site;
    {
        auto record = PublicationRecord::open(site.path(), kHere);
        for (const QString& name : {u"a.htm"_s, u"../b.htm"_s, u"/c.htm"_s, u"x/../d.htm"_s})
            EXPECT_TRUE(record->confirm(file(name)));
        EXPECT_TRUE(record->close());
        EXPECT_TRUE(PublicationRecord::open(site.path(), kThere)->confirm(file(u"t.htm"_s)));
    }
    EXPECT_EQ(held(site, kHere), u"a.htm 5"_s);
    const QByteArray whole = site.bytes(kRecord);
    for (qsizetype at = 0; at < whole.size(); ++at) {
        site.put(kRecord, QByteArray(whole).replace(at, 1, QByteArray(1, static_cast<char>(whole[at] ^ 1))));
        EXPECT_THAT(held(site, kHere), testing::AnyOf(u"a.htm 5"_s, u""_s)) << at;
        EXPECT_THAT(held(site, kThere), testing::AnyOf(u"t.htm 5"_s, u""_s)) << at;
    }
    ASSERT_TRUE(remove_file(site.path(kRecord)));
    QDir(site.path()).mkdir(kRecord);
    EXPECT_EQ(held(site, kHere), u"No permission for %1."_s.arg(site.path(kRecord)));
}

}  // namespace pondera
