#include "publish/commands/command_stack.h"

#include "publish/commands/command_executor.h"
#include "tests/support/tables.h"

using namespace Qt::StringLiterals;

namespace pondera {

TEST(CommandStack, RunsTheLastPushedFirstAndTakesNoMoreThanItsHighestIndex) {
    CommandStack stack(3);
    stack.push(u"DIR"_s);
    stack.push_in_running_order({u"CD a"_s, u"CD b"_s});
    EXPECT_THROW(stack.push(u"CDUP"_s), SubscriptOutOfRange);
    EXPECT_THROW(stack.push_in_running_order({u"CDUP"_s}), SubscriptOutOfRange);
    QStringList run;
    while (!stack.empty()) run << stack.take();
    EXPECT_EQ(run, QStringList({u"CD a"_s, u"CD b"_s, u"DIR"_s}));
}

TEST(ShownCommand, LeavesOutTheStagingFolderAndWhatFollowsTheFirstBlankBehindTheVerb) {
    struct Case {
        QString command, shown;
    };
    for (const Case& c :
         std::initializer_list<Case>{{u"SEND /w/FTP/Shop/media/img/Sea.jpg Sea.jpg"_s, u"SEND media/img/Sea.jpg"_s},
                                     {u"CD Shop"_s, u"CD Shop"_s},
                                     {u"CD My Shop"_s, u"CD My Shop"_s},
                                     {u"CD Web Shop"_s, u"CD Web"_s},
                                     {u"DIR"_s, u"DIR"_s}})
        EXPECT_EQ(shown_command(c.command, u"/w/FTP/Shop"_s), c.shown);
}

}  // namespace pondera
