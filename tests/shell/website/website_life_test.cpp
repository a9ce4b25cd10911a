#include "shell/website/recent_websites.h"
#include "site/interface_models.h"
#include "site/website_creation.h"
#include "site/website_listing.h"
#include "tests/shell/window/window_fixture.h"
#include "tests/support/folder_text.h"
#include "tests/support/test_folder.h"

namespace pondera {

/// Presses OK at once, then chooses an entry of the list.
static ScriptedPrompts::Filler pick(const QString& title, const QString& entries, const QString& entry) {
    return [=](const FormHand& form) {
        EXPECT_EQ(form.form().windowTitle() + u": "_s + form.entries(u"list"_s).join(u'|'), title + u": "_s + entries);
        form.click(u"OKButton"_s).choose(u"list"_s, entry).photograph(title).click(u"OKButton"_s);
    };
}

class WebsiteLife : public WindowFixture {
  protected:
    /// Puts a Website that is not this person's into the folder outside.
    QString outside_website(const QString& name) {
        outside_.put(name + u"/index.htm"_s, "<HTML><BODY>new</BODY></HTML>");
        return QFileInfo(outside_.put(name + u"/çindex.htm"_s, "<HTML><BODY>new</BODY></HTML>")).path();
    }

    [[nodiscard]] QString everything() const { return text_of_folder(roots_.websites()); }

    TestFolder outside_;
};

TEST_F(WebsiteLife, ImportOffersWhatAFolderHoldsAndOpensIt) {
    prompts_.expect_folder(u""_s);
    choose(u"Importa_Website"_s);
    prompts_.expect_folder(outside_.path()).expect_message(u"This folder is not a Pondera VANTILE Website."_s);
    choose(u"Importa_Website"_s);

    for (const QString& name : {u"Bakery"_s, u"Garden"_s, u"_HELP"_s}) outside_website(name);
    outside_.put(u"Garden/papers/a.pdf"_s);
    prompts_.expect_folder(outside_.path());
    run_form(u"Importa_Website"_s, u"Frm_Apri_nuovo"_s, pick(u"Select a Website"_s, u"Bakery|Garden"_s, u"Garden"_s),
             {u"Select a Progect!"_s, u"Website correctly copied in:\n"_s + roots_.website(u"Garden"_s)});
    EXPECT_TRUE(prompts_.messages().last().text.endsWith(u"\npapers/"_s));
    EXPECT_EQ(workbench().website() + recent_websites(settings_, roots_).join(u' '), u"GardenGarden");
}

TEST_F(WebsiteLife, ImportReplacesTheOpenWebsiteOnlyWhenAllIsAgreed) {
    const QString folder = outside_website(u"Shop"_s);
    const QString question = u"The Website Shop is already present. Do you want to replace it?"_s;
    open(u"Shop"_s);
    change_page();
    const QString before = everything();
    prompts_.expect_folder(folder).expect_message(question, Answer::kNo);
    choose(u"Importa_Website"_s);
    prompts_.expect_folder(folder).expect_message(question, Answer::kYes);
    run_told(u"Importa_Website"_s, u"unsaved changes"_s, Answer::kCancel);
    EXPECT_EQ(everything(), before);
    EXPECT_TRUE(editor().modified());

    prompts_.expect_folder(folder).expect_message(question, Answer::kYes);
    prompts_.expect_message(u"unsaved changes"_s, Answer::kDiscard);
    run_told(u"Importa_Website"_s, u"Website correctly copied in:"_s);
    EXPECT_TRUE(editor().text().contains(u"new"_s));
    EXPECT_EQ(list_pages(shop()), QStringList({u"index.htm"_s}));
}

TEST_F(WebsiteLife, SaveAsGoesOnInACopyThatHasWhatWasUnsaved) {
    open(u"Shop"_s);
    change_page(u"my words"_s);
    prompts_.expect_form(u"Frm_Nuovo"_s, type_names({u"My Shop"_s, u"EMPTY"_s, u"Bakery"_s}),
                         {u"or Cancel the space after the name"_s, u"Name of the Website already used!"_s});
    run_told(u"salva_con_nome2"_s, u"unsaved changes"_s, Answer::kSave);
    EXPECT_EQ(workbench().website(), u"Bakery");
    EXPECT_FALSE(editor().modified());
    for (const QString& website : {u"Shop"_s, u"Bakery"_s})
        EXPECT_THAT(read(website, u"çindex.htm"_s), Holds(u"my words"_s));
}

TEST_F(WebsiteLife, DeletionAsksTwiceAndTheWindowForgetsTheWebsite) {
    const QString first = u"Do you want to delete the current Website?"_s;
    const QString warning = u"The deletion will be IRREVERSIBLE!"_s;
    const QString last =
        u"You are on the verge of deleting the Website Shop.\n\nAre you sure you want to definitively delete it?"_s;
    open(u"Shop"_s);
    change_page();
    const QString before = everything();
    for (const Answer no : {Answer::kNo, Answer::kCancel}) {
        run_told(u"Erase_Proj"_s, first, no);
        prompts_.expect_message(first, Answer::kYes).expect_message(warning).expect_message(last, no);
        choose(u"Erase_Proj"_s);
    }
    EXPECT_EQ(everything() + workbench().website(), before + u"Shop"_s);

    ASSERT_TRUE(QDir(shop()).mkpath(u"papers"_s));
    prompts_.expect_message(first, Answer::kYes).expect_message(warning).expect_message(last, Answer::kYes);
    run_told(u"Erase_Proj"_s, u"\n\npapers/"_s);
    EXPECT_EQ(list_websites(roots_).join(u' ') + workbench().website(), u"Empty");
    EXPECT_EQ(window_->findChild<QPushButton*>(u"recent_Shop"_s), nullptr);
    EXPECT_EQ(find<QTreeWidget>(u"TreeView1"_s).topLevelItemCount(), 0);
    EXPECT_FALSE(choose(u"Erase_Proj"_s));
}

TEST_F(WebsiteLife, ModelsAreSavedShownReplacedAndDeleted) {
    have_shipped_files();
    ASSERT_TRUE(create_website_folder(roots_, u"Bakery"_s));
    ASSERT_TRUE(fill_website(roots_, {u"Bakery"_s, u"Store_Interface"_s, 1}));
    open(u"Bakery"_s);
    run_form(u"Salva_Modello"_s, u"Frm_Nuova_Scheda"_s, type_names({u"store_interface"_s, u"Mine"_s}),
             {u"belongs to the program"_s, u"Interface model saved:"_s});
    const QImage shown(interface_model_preview(roots_, u"Mine"_s, 1));
    const QImage shipped(interface_model_preview(roots_, u"Store_Interface"_s, 1));
    ASSERT_EQ(shown.size(), shipped.size());
    for (const QPoint place : {QPoint(20, 20), QPoint(390, 150), QPoint(60, 300)})
        EXPECT_LT(std::abs(qGray(shown.pixel(place)) - qGray(shipped.pixel(place))), 40) << place.x();

    prompts_.expect_form(u"Frm_Nuova_Scheda"_s, type_names({u"MINE"_s}))
        .expect_message(u"The model Mine is already present. Do you want to replace it?"_s, Answer::kNo)
        .expect_form(u"Frm_Nuova_Scheda"_s, [](const FormHand& form) { form.press(Qt::Key_Escape); });
    choose(u"Salva_Modello"_s);

    const QString question = u"Are you sure you want to definitely delete\nthe model Mine?"_s;
    for (const Answer answer : {Answer::kNo, Answer::kYes}) {
        EXPECT_EQ(list_own_interface_models(roots_), QStringList({u"Mine"_s}));
        const QString mine = u"Interfaccia Mine"_s;
        prompts_.expect_form(u"Frm_Elimina_Modello"_s, pick(u"Delete Interface Model"_s, mine, mine));
        prompts_.expect_message(u"Select a Model!"_s).expect_message(question, answer);
        choose(u"Elimina_Modello"_s);
    }
    EXPECT_EQ(list_own_interface_models(roots_), QStringList());
}

TEST_F(WebsiteLife, ExportAsksForAPlaceAndWritesWhatVisitorsGet) {
    write(u"Shop"_s, u"§_4_New.htm"_s, u"<P>§Only here</P>"_s);
    open(u"Shop"_s);
    change_page(u"my words"_s);
    outside_.put(u"Shop/mine.txt"_s);
    const auto folder = [this](const FormHand& form) {
        form.type(u"txtPath"_s, roots_.websites()).click(u"OKButton"_s);
        form.type(u"txtPath"_s, outside_.path()).click(u"OKButton"_s);
        form.photograph(u"export"_s).click(u"OKButton"_s);
    };
    prompts_.expect_form(u"Frm_Esporta"_s, folder)
        .expect_message(u"outside of the folder of your Websites"_s)
        .expect_message(u"is not empty"_s, Answer::kNo)
        .expect_message(u"is not empty"_s, Answer::kYes);
    run_told(u"Esporta_Website"_s, u"Website exported to:\n"_s + outside_.path(u"Shop"_s));
    EXPECT_EQ(QDir(outside_.path(u"Shop"_s)).entryList(QDir::Files).join(u' '),
              u"_4_New.htm _4_Trips.htm _x_Map.htm index.htm mine.txt");
    EXPECT_TRUE(outside_.bytes(u"Shop/index.htm"_s).contains("my words"));
    EXPECT_TRUE(outside_.bytes(u"Shop/_4_New.htm"_s).contains("<P>Only here"));

    const QString zip = outside_.put(u"site.zip"_s, "old");
    const auto archive = [this](const FormHand& form) {
        form.click(u"optZip"_s);
        EXPECT_EQ(form.widget<QLineEdit>(u"txtPath"_s).text(), outside_.path(u"Shop.zip"_s));
        form.click(u"cmdBrowse"_s).click(u"OKButton"_s);
    };
    prompts_.expect_form(u"Frm_Esporta"_s, archive).expect_new_file(zip);
    run_told(u"Esporta_Website"_s, u"Website exported to:"_s);
    EXPECT_TRUE(outside_.bytes(u"site.zip"_s).startsWith("PK"));
}

}  // namespace pondera
