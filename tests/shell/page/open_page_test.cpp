#include "shell/page/open_page.h"

#include "base/text_file.h"
#include "shell/editing/dhtml_edit.h"
#include "shell/page/page_faults.h"
#include "tests/support/scripted_prompts.h"

namespace pondera {

using testing::AllOf;
using testing::HasSubstr;

// The other texts are met where the faults are made, below.
TEST(PageFaults, MessagesAreTheFixedOnes) {
    using F = FaultNumber;
    const QList<std::tuple<F, QString, QString>> texts{
        {F::kUnexpected, u"Error: Unexpected Error!"_s, u"Unexpected error"_s},
        {F::kServerScript, u"Error:  the document is mainly a  'server side script'"_s, u"Unknown error"_s},
        {F::kBinary, u"Error: the document is not a text!"_s, u"Unknown error"_s},
        {F::kInvalidCall, u"Error: invalid subject!"_s, u"Invalid argument"_s},
        {F::kPermissionDenied, u"Error: Access denied!"_s, u"Access denied"_s},
        {F::kDiskFull, u"Unknown Error!"_s, u"Disk is full"_s},
        {F::kWriteDiskFull, u"Unknown Error!"_s, u"Disk is full"_s},
        {F::kAlreadyExists, u"Unknown Error!"_s, u"Unknown error"_s},
    };
    for (const auto& [number, load, save] : texts) {
        EXPECT_EQ(load_fault_message(number), u"Error occurred while downloading the document: %1."_s.arg(load));
        EXPECT_EQ(save_fault_message(number), u"Error occurred in the saving of the page: %1."_s.arg(save));
    }
}

/// The progress of a test: which texts were shown.
class RecordedProgress : public Progress {
  public:
    void begin(const QString& what, const QString& state, int, Cancelling) override { shown += what + u'|' + state; }
    void set_steps(int) override {}
    void advance(int) override {}
    [[nodiscard]] bool cancelled() const override { return false; }
    void end() override { shown += u"end"_s; }

    QStringList shown;
};

/// A Website "Shop" on disk, opened in the real editing control.
class OpenPageTest : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(QDir().mkpath(folder()));
        editor_.resize(800, 600);
        editor_.show();
    }

    [[nodiscard]] QString folder() const { return roots_.website(u"Shop"_s); }
    [[nodiscard]] QString path(const QString& name) const { return folder() + u'/' + name; }
    [[nodiscard]] std::string bytes(const QString& name) const {
        return read_file(path(name)).value_or("no file").toStdString();
    }
    [[nodiscard]] std::string text() { return editor_.text().toStdString(); }

    void write(const QString& name, const QByteArray& bytes) const { ASSERT_TRUE(write_file(path(name), bytes)); }
    void write_page(const QString& name, const QByteArray& body) const {
        write(name, "<HTML><BODY>" + body + "</BODY></HTML>");
    }

    /// Writes a page's editing copy and loads it.
    void open(const QString& page, const QByteArray& body) {
        write_page(u'§' + page, body);
        ASSERT_TRUE(page_.NUOVA_VIDEATA(folder(), page));
    }

    QTemporaryDir home_;
    Roots roots_{home_.filePath(u"Pondera_Folder"_s)};
    DHTMLEdit editor_;
    ScriptedPrompts prompts_;
    RecordedProgress progress_;
    OpenPage page_{roots_, editor_, prompts_, progress_, [] { return true; }};
};

TEST_F(OpenPageTest, EditingCopyIsFoundInTheLoadersOrder) {
    for (const QString& copy :
         {u"çindex.htm"_s, u"§_4_Subject.htm"_s, u"§_2_Trips.htm"_s, u"§_4_Trips.htm"_s, u"§Trips.htm"_s})
        write_page(copy, "x");
    using Names = std::pair<QString, QString>;
    for (const auto& [name, file] : {Names{u"index.htm"_s, u"çindex.htm"_s},
                                     {u"index"_s, u"çindex.htm"_s},
                                     {u"Subject"_s, u"§_4_Subject.htm"_s},
                                     {u"§_4_Subject.htm"_s, u"§_4_Subject.htm"_s},
                                     {u"_2_Trips"_s, u"§_2_Trips.htm"_s},
                                     {u"Trips"_s, u"§Trips.htm"_s}}) {
        ASSERT_TRUE(page_.NUOVA_VIDEATA(folder(), name)) << name.toStdString();
        EXPECT_EQ(editor_.document_path(), path(file));
        EXPECT_EQ(page_.page(), file.mid(1));
    }
    ASSERT_TRUE(QFile::remove(path(u"§Trips.htm"_s)));
    ASSERT_TRUE(page_.NUOVA_VIDEATA(folder(), u"Trips"_s));
    EXPECT_EQ(page_.page(), u"_2_Trips.htm"_s) << "the lowest digit first";
}

TEST_F(OpenPageTest, APublishedPageAloneGetsAnEditingCopy) {
    write_page(u"_y_Guest.htm"_s, "<p>from outside");
    ASSERT_TRUE(page_.NUOVA_VIDEATA(folder(), u"_y_Guest.htm"_s));
    EXPECT_EQ(bytes(u"§_y_Guest.htm"_s), bytes(u"_y_Guest.htm"_s));
    EXPECT_EQ(page_.kind(), PageKind::kExternal);
}

TEST_F(OpenPageTest, WhatCannotBeLoadedIsToldAndThePageBeforeStays) {
    open(u"_4_A.htm"_s, "page A");
    write(u"_4_Frames.htm"_s, "<HTML><FRAMESET cols=\"1,2\"><FRAME src=a></FRAMESET></HTML>");
    const std::vector<std::pair<QString, QString>> cases{
        {u"_4_Frames.htm"_s, u"Error: the document contains a frameset!."_s},
        {u"_4_Gone.htm"_s, u"Error: File not found!."_s},
        {u"../Shop/_4_A.htm"_s, u"Error: invalid path!."_s},
    };
    for (const auto& [name, message] : cases) {
        prompts_.expect_message(message);
        EXPECT_FALSE(page_.NUOVA_VIDEATA(folder(), name));
        EXPECT_FALSE(QFileInfo::exists(path(u'§' + name))) << "no editing copy is left of what cannot be edited";
        EXPECT_EQ(page_.page(), u"_4_A.htm"_s);
        EXPECT_THAT(text(), HasSubstr("page A"));
    }
    prompts_.expect_message(u"Error: invalid path!."_s);
    EXPECT_FALSE(page_.NUOVA_VIDEATA(folder() + u"/gone"_s, u"_4_A.htm"_s));
    for (const Message& message : prompts_.messages()) EXPECT_EQ(message.icon, MessageIcon::kCritical);
}

TEST_F(OpenPageTest, SavingWritesEditingCopyAndPublishedPageInTheEncodingOfThePage) {
    open(u"_4_A.htm"_s, "<P>caff\xE8</P><A href=\"\xA7_4_B.htm\">B</A>");
    editor_.paste_at_end(
        u"<IMG src=\"%1/media/img/a.gif\" style=\"position:absolute; left:5; top:5\">"_s.arg(folder()));
    EXPECT_TRUE(editor_.modified());
    ASSERT_TRUE(page_.Salvataggio_Doc_Cor());
    EXPECT_FALSE(editor_.modified());
    EXPECT_THAT(bytes(u"§_4_A.htm"_s), AllOf(HasSubstr("<P>caff\xE8</P>"), HasSubstr("href=\"\xA7_4_B.htm\"")));
    EXPECT_THAT(bytes(u"_4_A.htm"_s), AllOf(HasSubstr("<P>caff\xE8</P>"), HasSubstr("href=\"_4_B.htm\""),
                                            HasSubstr("src=\"media/img/a.gif\"")));
    EXPECT_EQ(progress_.shown.join(u'|'), u"Wait||end|Save of page|in progress...|end");

    const std::string first = bytes(u"§_4_A.htm"_s) + bytes(u"_4_A.htm"_s);
    ASSERT_TRUE(page_.Salvataggio_Doc_Cor());
    EXPECT_EQ(bytes(u"§_4_A.htm"_s) + bytes(u"_4_A.htm"_s), first) << "saved untouched, the same bytes";
}

TEST_F(OpenPageTest, AnotherProgramsChangeIsNeverOverwrittenUnasked) {
    open(u"_4_A.htm"_s, "first");
    editor_.paste_at_end(u"<P>mine</P>"_s);
    write_page(u"§_4_A.htm"_s, "theirs");

    prompts_.expect_message(u"changed by another program"_s, Answer::kCancel);
    EXPECT_FALSE(page_.Salvataggio_Doc_Cor());
    EXPECT_THAT(bytes(u"§_4_A.htm"_s), HasSubstr("theirs"));

    prompts_.expect_message(u"changed by another program"_s, Answer::kReload);
    EXPECT_FALSE(page_.Salvataggio_Doc_Cor());
    EXPECT_THAT(text(), HasSubstr("theirs"));
    EXPECT_TRUE(page_.Salvataggio_Doc_Cor()) << "what was loaded is not asked about again";

    write_page(u"§_4_A.htm"_s, "theirs again");
    prompts_.expect_message(u"changed by another program"_s, Answer::kOverwrite);
    ASSERT_TRUE(editor_.execute(EditCommand::kUndo)) << "the page before it was loaded";
    EXPECT_TRUE(page_.Salvataggio_Doc_Cor());
    EXPECT_THAT(bytes(u"§_4_A.htm"_s), HasSubstr("<P>mine</P>"));
    EXPECT_THAT(bytes(u"_4_A.htm"_s), HasSubstr("<P>mine</P>"));

    ASSERT_TRUE(QFile::remove(path(u"§_4_A.htm"_s)));
    prompts_.expect_message(u"Error: File not found!."_s);
    EXPECT_FALSE(page_.reload());
}

TEST_F(OpenPageTest, APublishedPageThatCannotBeWrittenIsTold) {
    open(u"_4_A.htm"_s, "x");
    ASSERT_TRUE(QDir().mkdir(path(u"_4_A.htm"_s))) << "a folder stands where the published page is to be written";
    prompts_.expect_message(u"Error occurred in the saving of the page: "_s);
    EXPECT_FALSE(page_.Salvataggio_Doc_Cor());
    EXPECT_TRUE(editor_.modified()) << "there is still something to save";
    ASSERT_TRUE(QDir().rmdir(path(u"_4_A.htm"_s)));
    EXPECT_TRUE(page_.Salvataggio_Doc_Cor());
    EXPECT_FALSE(editor_.modified());
}

}  // namespace pondera
