#include "base/bulk_replacement.h"

#include "tests/support/folder_text.h"
#include "tests/support/test_folder.h"

namespace pondera {

TEST(BulkReplacement, WritesFilesWhereTheyAre) {
    const TestFolder folder;
    const QString shorter = folder.put(u"a.htm"_s, "old bytes");
    const QString longer = folder.put(u"b.htm"_s, "old");
    const QString locked = folder.put(u"c.htm"_s, "old");
    ASSERT_TRUE(QFile::setPermissions(locked, QFile::ReadOwner));
    {
        BulkReplacement replacement(folder.path());
        EXPECT_TRUE(replacement.replace(shorter, "old bytes", "new"));
        EXPECT_TRUE(replacement.replace(longer, "old", "new bytes"));
        EXPECT_EQ(replacement.replace(locked, "old", "new").error().number, FaultNumber::kPermissionDenied);
        EXPECT_EQ(replacement.replace(folder.path(u"none.htm"_s), "old", "new").error().number,
                  FaultNumber::kPathNotFound);
    }
    EXPECT_EQ(text_of_folder(folder.path()), u"a.htm=new b.htm=new bytes c.htm=old");
}

// A program that ends in the middle of a write leaves the backup and a file in parts.
TEST(BulkReplacement, WhatWasInterruptedIsUndone) {
    for (const bool whole_backup : {true, false}) {
        const TestFolder folder;
        const QString page = folder.put(u"§_4_Città.htm"_s, "the old bytes");
        QByteArray backup;
        {
            BulkReplacement replacement(folder.path());
            ASSERT_TRUE(
                replacement.replace(folder.put(u"long.htm"_s, QByteArray(300, 'x')), QByteArray(300, 'x'), "y"));
            ASSERT_TRUE(replacement.replace(page, "the old bytes", "the new"));
            backup = folder.bytes(u".pondera-backup.tmp"_s);
        }
        folder.put(u"§_4_Città.htm"_s, "the new bytes");
        folder.put(u".pondera-backup.tmp"_s, whole_backup ? backup : backup.first(40) + QByteArray(300, 'x'));
        undo_interrupted_replacement(folder.path());
        EXPECT_EQ(text_of_folder(folder.path()),
                  u"long.htm=y §_4_Città.htm=the %1 bytes"_s.arg(whole_backup ? u"old"_s : u"new"_s));
    }
    const TestFolder folder;
    folder.put(u"inner/.pondera-backup.tmp"_s, "pondera backup|1|3|../outside.htm\nbad1\n");
    folder.put(u"outside.htm"_s, "good");
    undo_interrupted_replacement(folder.path(u"inner"_s));
    EXPECT_EQ(folder.bytes(u"outside.htm"_s), "good");
}

}  // namespace pondera
