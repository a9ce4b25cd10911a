#include "publish/commands/command_stack.h"

#include "publish/commands/command_executor.h"
#include "tests/support/tables.h"

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
    const auto shown = [](const QString& command) { return shown_command(command, u"/w/FTP/Shop"_s); };
    expect_results(shown,
                   {u"SEND /w/FTP/Shop/media/img/Sea.jpg Sea.jpg → SEND media/img/Sea.jpg", u"CD Web Shop → CD Web"});
    expect_unchanged(shown, {u"CD Shop", u"CD My Shop", u"DIR"});
}

}  // namespace pondera
