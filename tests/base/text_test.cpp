#include "base/text.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

TEST(Text, ReplaceAllTakesTheLeftmostOccurrencesOnce) {
    EXPECT_EQ(replace_all(u"aaa"_s, u"aa"_s, u"b"_s), u"ba"_s);
    EXPECT_EQ(replace_all(u"<a <A"_s, u"<a"_s, u"<A"_s, Qt::CaseInsensitive), u"<A <A"_s);
    EXPECT_EQ(replace_all(u"<a <A"_s, u"<a"_s, u"<b"_s), u"<b <A"_s);
    EXPECT_EQ(replace_all(u"x"_s, u"x"_s, u"xx"_s), u"xx"_s);
    EXPECT_EQ(replace_all(u"abc"_s, {}, u"-"_s), u"abc"_s);
}

TEST(Text, RemoveBlocksLeavesAnUnclosedBlock) {
    EXPECT_EQ(remove_blocks(u"a[x]b[Y]c"_s, u"["_s, u"]"_s), u"abc"_s);
    EXPECT_EQ(remove_blocks(u"a<!-- S -->x<!-- /s -->b<!-- s -->y"_s, u"<!-- s -->"_s, u"<!-- /S -->"_s),
              u"ab<!-- s -->y"_s);
}

}  // namespace

}  // namespace pondera
