#include "tests/support/scripted_prompts.h"

#include <gtest/gtest-spi.h>

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

/// A form whose OK asks before it closes.
class AskingForm : public QDialog {
  public:
    explicit AskingForm(Prompts& prompts) {
        setObjectName(u"AskingForm"_s);
        auto* layout = new QVBoxLayout(this);
        auto* name = new QLineEdit;
        name->setObjectName(u"txtName"_s);
        auto* ok = new QPushButton(u"OK"_s);
        ok->setObjectName(u"OKButton"_s);
        layout->addWidget(name);
        layout->addWidget(ok);
        connect(ok, &QPushButton::clicked, this, [=, this, &prompts] {
            if (prompts.yes(name->text() + u"?"_s)) accept();
        });
    }
};

TEST(ScriptedPrompts, WorkAFormAndAnswerWhatItAsks) {
    ScriptedPrompts person;
    person
        .expect_form(u"AskingForm"_s,
                     [](const FormHand& form) {
                         form.type(u"txtName"_s, u"Città"_s);
                         form.click(u"OKButton"_s);
                         form.click(u"OKButton"_s);
                     })
        .expect_message(u"Città?"_s, Answer::kNo)
        .expect_message(u"Città?"_s, Answer::kYes);
    AskingForm form(person);
    EXPECT_TRUE(person.run(form));
    EXPECT_EQ(person.messages().size(), 2);
}

TEST(ScriptedPrompts, WhatIsNotInTheScriptFailsTheTest) {
    EXPECT_NONFATAL_FAILURE(ScriptedPrompts().tell(u"Surprise"_s), "Surprise");
    EXPECT_NONFATAL_FAILURE(ScriptedPrompts().expect_file(u"a.gif"_s), "never asked for: the file a.gif");
    EXPECT_NONFATAL_FAILURE(
        {
            ScriptedPrompts person;
            person.expect_message(u"Sure"_s, Answer::kOverwrite);
            EXPECT_FALSE(person.yes(u"Sure?"_s));
        },
        "not offered");
    for (const auto& fill : {ScriptedPrompts::Filler([](const FormHand&) {}),
                             ScriptedPrompts::Filler([](const FormHand& form) { form.click(u"cmdMissing"_s); })})
        EXPECT_NONFATAL_FAILURE(
            {
                ScriptedPrompts person;
                person.expect_form(u"AskingForm"_s, fill);
                AskingForm form(person);
                EXPECT_FALSE(person.run(form));
            },
            "AskingForm");
}

}  // namespace

}  // namespace pondera
