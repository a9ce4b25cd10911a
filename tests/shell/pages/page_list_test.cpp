#include "shell/pages/page_list.h"

#include "shell/pages/frm_collegamento_popup.h"
#include "tests/shell/window/window_fixture.h"

namespace pondera {

/// The page list over the Website "Shop", which also has pages to be counted and documents.
class PageListForm : public WindowFixture {
  protected:
    void SetUp() override {
        WindowFixture::SetUp();
        for (const QString& file : {u"_4_Day10.htm"_s, u"_4_day2.htm"_s, u"Prices.PDF"_s, u"_2_Sea.htm"_s})
            write(u"Shop"_s, file, u"x"_s);
        open(u"Shop"_s);
    }

    /// What is chosen when `fill` has worked the form; "(cancelled)" when it was not taken.
    QString chosen(PageListMode mode, const ScriptedPrompts::Filler& fill) {
        frm_collegamento_popup form(workbench(), mode, u"Link to Popup"_s, {});
        prompts_.expect_form(u"frm_collegamento_popup"_s, fill);
        return prompts_.run(form) ? form.choice() : u"(cancelled)"_s;
    }
};

TEST_F(PageListForm, OffersWhatTheModeAllowsInTheOrderOfPeople) {
    const QString pages =
        u"HOME PAGE|day2  ;  [page]|Day10  ;  [page]|Map  ;  [popup]|Sea  ;  [photo-show]|Trips  ;  [page]"_s;
    const auto entries_are = [](const QString& mode, const QString& entries) {
        return [=](const FormHand& form) {
            EXPECT_EQ(form.form().property("mode").toString(), mode);
            EXPECT_EQ(form.entries(u"list"_s).join(u'|'), entries);
            form.double_click(u"list"_s, u"day2  ;  [page]"_s);
        };
    };
    EXPECT_EQ(chosen(PageListMode::kCancellazione, entries_are(u"CANCELLAZIONE"_s, pages)), u"_4_day2.htm");
    EXPECT_EQ(chosen(PageListMode::kCollega, entries_are(u"COLLEGA"_s, pages + u"|Prices.PDF  ;  [Acrobat page]"_s)),
              u"_4_day2.htm");
}

TEST_F(PageListForm, IsWorkedByKeys) {
    const auto to_the_list = [](const FormHand& form) {
        form.type(u"txtFilter"_s, u"DAY"_s).press(Qt::Key_Down).press(Qt::Key_Down).press(Qt::Key_Return);
    };
    EXPECT_EQ(chosen(PageListMode::kCollega, to_the_list), u"_4_Day10.htm");
    const auto only_one = [](const FormHand& form) { form.type(u"txtFilter"_s, u"popup"_s).press(Qt::Key_Return); };
    EXPECT_EQ(chosen(PageListMode::kCollega, only_one), u"_x_Map.htm");
    const auto escape_twice = [](const FormHand& form) {
        form.type(u"txtFilter"_s, u"xyz"_s);
        EXPECT_TRUE(form.widget<QLabel>(u"lblNothing"_s).text().contains(u"\"xyz\""_s));
        form.press(Qt::Key_Escape);
        EXPECT_EQ(form.entries(u"list"_s).size(), 7);
        form.press(Qt::Key_Escape);
    };
    EXPECT_EQ(chosen(PageListMode::kCollega, escape_twice), u"(cancelled)");
}

TEST_F(PageListForm, WantsAChoice) {
    const auto nothing_chosen = [this](const FormHand& form) {
        prompts_.expect_message(u"Select a page!"_s).expect_message(u"Select a page!"_s);
        form.click(u"OKButton"_s).choose(u"list"_s, u"HOME PAGE"_s);
        // A choice that the filter leaves out is none.
        form.type(u"txtFilter"_s, u"day"_s).click(u"OKButton"_s).click(u"CancelButton"_s);
    };
    EXPECT_EQ(chosen(PageListMode::kCollega, nothing_chosen), u"(cancelled)");
}

}  // namespace pondera
