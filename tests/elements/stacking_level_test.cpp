#include "elements/stacking_level.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

TEST(StackingLevel, NextFreeLevelIsHighestPlusOne) {
    const std::vector<std::pair<QString, QString>> cases{
        {u"<P>no levels at all</P>"_s, u"1"_s},
        {u"style=\"z-index: 5; left: 1\" style=\"Z-INDEX: 901; LEFT: 1px\""_s, u"902"_s},
        {u"style=\"Z-index: 7; x\" style=\"z-Index: 40; x\""_s, u"41"_s},
        {u"style=\"Z-INDEX: 12345; LEFT: 1px\""_s, u"1235"_s},
        {u"style=\"Z-INDEX: 10000; x\" style=\"Z-INDEX: 3200; x\""_s, u"3201"_s},
        {u"style=\"Z-INDEX: 830\" name=a> style=\"Z-INDEX: 12; x\""_s, u"13"_s},  // a quote follows too soon
        {u"style=\"Z-INDEX:900; LEFT: 1px\" style=\"Z-INDEX: 3; x\""_s, u"4"_s},  // no blank, no level
        {u"style=\"Z-INDEX: auto; x\" style=\"Z-INDEX: 20; x\""_s, u"21"_s},
        {u"style=\"Z-INDEX: -5; x\" style=\"Z-INDEX: -9; x\""_s, u"-4"_s},
        {u"style=\"Z-INDEX: 0; x\" style=\"Z-INDEX: -9; x\""_s, u"-8"_s},  // 0 gives way without comparison
        {u"style=\"Z-INDEX: 9"_s, u"10"_s},
    };
    for (const auto& [page, level] : cases) EXPECT_EQ(FzIndex(page), level) << page.toStdString();
}

TEST(StackingLevel, ComputedLevelsThatBeginWith100Become830) {
    const std::vector<std::pair<QString, QString>> cases{{u"100"_s, u"830"_s},
                                                         {u"1005"_s, u"8305"_s},
                                                         {u"1003"_s, u"8303"_s},
                                                         {u"1010"_s, u"1010"_s},
                                                         {u"99"_s, u"99"_s}};
    for (const auto& [free_level, written] : cases)
        EXPECT_EQ(with_picture_level(with_free_level(u"style=\"Z-INDEX: 100; LEFT: 1px\""_s, free_level)),
                  u"style=\"Z-INDEX: %1; LEFT: 1px\""_s.arg(written));
}

}  // namespace

}  // namespace pondera
