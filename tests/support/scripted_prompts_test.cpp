#include "tests/support/scripted_prompts.h"

#include <gtest/gtest-spi.h>

namespace pondera {

/// Whether the form was confirmed by a person who does with it what `fill` says.
static bool confirmed(const ScriptedPrompts::Filler& fill) {
    QDialog form;
    form.setObjectName(u"AskingForm"_s);
    return ScriptedPrompts().expect_form(u"AskingForm"_s, fill).run(form);
}

TEST(ScriptedPrompts, WhatIsNotInTheScriptFailsTheTest) {
    EXPECT_NONFATAL_FAILURE(ScriptedPrompts().tell(u"Surprise"_s), "Surprise");
    EXPECT_NONFATAL_FAILURE(ScriptedPrompts().expect_message(u"Other"_s).tell(u"Surprise"_s), "expected: Other");
    EXPECT_NONFATAL_FAILURE(ScriptedPrompts().expect_file(u"a.gif"_s), "never asked for: the file a.gif");
    EXPECT_NONFATAL_FAILURE(ScriptedPrompts().expect_message(u"?"_s, Answer::kReload).yes(u"?"_s), "not offered");
    EXPECT_NONFATAL_FAILURE(EXPECT_FALSE(confirmed([](const FormHand&) {})), "AskingForm was left open");
    EXPECT_NONFATAL_FAILURE(confirmed([](const FormHand& form) { form.click(u"OKButton"_s); }), "shows no OKButton");
}

}  // namespace pondera
