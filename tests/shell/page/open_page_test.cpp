#include "tests/shell/window/window_fixture.h"

namespace pondera {

using testing::AllOf;

/// Pages of the Website "Shop", which is open, written as they may come from anywhere.
class OpenPageTest : public WindowFixture {
  protected:
    void SetUp() override {
        WindowFixture::SetUp();
        WindowFixture::open(u"Shop"_s);
    }

    [[nodiscard]] QByteArray bytes(const QString& name) const { return read_file(shop(name)).value_or("no file"); }

    void write(const QString& name, const QByteArray& bytes) const { ASSERT_TRUE(write_file(shop(name), bytes)); }
    void write_page(const QString& name, const QByteArray& body) const {
        write(name, "<HTML><BODY>" + body + "</BODY></HTML>");
    }

    /// Writes a page's editing copy and loads it.
    void open(const QString& page, const QByteArray& body) {
        write_page(u'§' + page, body);
        ASSERT_TRUE(workbench().load(page));
    }
};

TEST_F(OpenPageTest, EditingCopyIsFoundInTheLoadersOrder) {
    for (const QString& copy : u"çindex.htm §_4_Subject.htm §_2_Trips.htm §_4_Trips.htm §Trips.htm"_s.split(u' '))
        write_page(copy, "x");
    for (const auto& [name, file] : {std::pair{u"index"_s, u"çindex.htm"_s},
                                     {u"Subject"_s, u"§_4_Subject.htm"_s},
                                     {u"§_4_Subject.htm"_s, u"§_4_Subject.htm"_s},
                                     {u"_2_Trips"_s, u"§_2_Trips.htm"_s},
                                     {u"Trips"_s, u"§Trips.htm"_s}}) {
        ASSERT_TRUE(workbench().load(name)) << name.toStdString();
        EXPECT_EQ(editor().document_path(), shop(file));
        EXPECT_EQ(page(), file.mid(1));
    }
    ASSERT_TRUE(QFile::remove(shop(u"§Trips.htm"_s)));
    ASSERT_TRUE(workbench().load(u"Trips"_s));
    EXPECT_EQ(page(), u"_2_Trips.htm"_s) << "the lowest digit first";

    write_page(u"_y_Guest.htm"_s, "<p>from outside");
    ASSERT_TRUE(workbench().load(u"_y_Guest.htm"_s));
    EXPECT_EQ(bytes(u"§_y_Guest.htm"_s), bytes(u"_y_Guest.htm"_s)) << "a published page alone gets one";
}

TEST_F(OpenPageTest, WhatCannotBeLoadedIsToldAndThePageBeforeStays) {
    open(u"_4_A.htm"_s, "page A");
    write(u"_4_Frames.htm"_s, "<HTML><FRAMESET cols=\"1,2\"><FRAME src=a></FRAMESET></HTML>");
    for (const auto& [name, message] : {std::pair{u"_4_Frames.htm"_s, u"Error: the document contains a frameset!."_s},
                                        {u"_4_Gone.htm"_s, u"Error: File not found!."_s},
                                        {u"../Shop/_4_A.htm"_s, u"Error: invalid path!."_s}}) {
        prompts_.expect_message(message);
        EXPECT_FALSE(workbench().load(name));
        EXPECT_FALSE(QFileInfo::exists(shop(u'§' + name))) << "no editing copy is left of what cannot be edited";
        EXPECT_EQ(page(), u"_4_A.htm"_s);
        EXPECT_THAT(editor().text(), Holds(u"page A"_s));
    }
    prompts_.expect_message(u"Error: invalid path!."_s);
    EXPECT_FALSE(workbench().open_website(u"Gone"_s));
    for (const Message& message : prompts_.messages()) EXPECT_EQ(message.icon, MessageIcon::kCritical);
}

TEST_F(OpenPageTest, SavingWritesEditingCopyAndPublishedPageInTheEncodingOfThePage) {
    open(u"_4_A.htm"_s, "<P>caff\xE8</P><A href=\"\xA7_4_B.htm\">B</A>");
    editor().paste_at_end(
        u"中<IMG src=\"%1/media/img/a.gif\" style=\"position:absolute; left:5; top:5\">"_s.arg(shop()));
    ASSERT_TRUE(workbench().save());
    EXPECT_FALSE(editor().modified());
    EXPECT_THAT(bytes(u"§_4_A.htm"_s), AllOf(Holds("<P>caff\xE8</P>"), Holds("href=\"\xA7_4_B.htm\"")));
    EXPECT_THAT(bytes(u"_4_A.htm"_s), AllOf(Holds("<P>caff\xE8</P>"), Holds("href=\"_4_B.htm\""),
                                            Holds("src=\"media/img/a.gif\""), Holds("&#20013;")));
    const QByteArray first = bytes(u"§_4_A.htm"_s) + bytes(u"_4_A.htm"_s);
    ASSERT_TRUE(workbench().save());
    EXPECT_EQ(bytes(u"§_4_A.htm"_s) + bytes(u"_4_A.htm"_s), first) << "saved untouched, the same bytes";
}

TEST_F(OpenPageTest, AnotherProgramsChangeIsNeverOverwrittenUnasked) {
    open(u"_4_A.htm"_s, "first");
    editor().paste_at_end(u"<P>mine</P>"_s);
    write_page(u"§_4_A.htm"_s, "theirs");

    prompts_.expect_message(u"changed by another program"_s, Answer::kCancel);
    EXPECT_FALSE(workbench().save());
    EXPECT_THAT(bytes(u"§_4_A.htm"_s), Holds("theirs"));

    prompts_.expect_message(u"changed by another program"_s, Answer::kReload);
    EXPECT_FALSE(workbench().save());
    EXPECT_THAT(editor().text(), Holds(u"theirs"_s));
    EXPECT_FALSE(editor().modified());
    EXPECT_TRUE(workbench().save()) << "what was loaded is not asked about again";

    write_page(u"§_4_A.htm"_s, "theirs again");
    prompts_.expect_message(u"changed by another program"_s, Answer::kOverwrite);
    ASSERT_TRUE(editor().execute(EditCommand::kUndo)) << "the page before it was loaded";
    EXPECT_TRUE(workbench().save());
    EXPECT_THAT(bytes(u"§_4_A.htm"_s), Holds("<P>mine</P>"));
    EXPECT_THAT(bytes(u"_4_A.htm"_s), Holds("<P>mine</P>"));

    ASSERT_TRUE(QFile::remove(shop(u"§_4_A.htm"_s)));
    prompts_.expect_message(u"Error: File not found!."_s);
    EXPECT_FALSE(workbench().reload());
}

TEST_F(OpenPageTest, APublishedPageThatCannotBeWrittenIsTold) {
    open(u"_4_A.htm"_s, "x");
    ASSERT_TRUE(QDir().mkdir(shop(u"_4_A.htm"_s))) << "a folder stands where the published page is to be written";
    prompts_.expect_message(u"Error occurred in the saving of the page: Access denied."_s);
    EXPECT_FALSE(workbench().save());
    EXPECT_TRUE(editor().modified()) << "there is still something to save";
    ASSERT_TRUE(QDir().rmdir(shop(u"_4_A.htm"_s)));
    EXPECT_TRUE(workbench().save());
    EXPECT_FALSE(editor().modified());
}

}  // namespace pondera
