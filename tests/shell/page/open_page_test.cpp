#include "shell/page/open_page.h"

#include "base/text_file.h"
#include "shell/editing/dhtml_edit.h"
#include "shell/page/page_faults.h"
#include "tests/support/scripted_prompts.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

TEST(PageFaults, MessagesAreTheFixedOnes) {
    const QString load = u"Error occurred while downloading the document: "_s;
    const std::vector<std::pair<FaultNumber, QString>> loads{
        {FaultNumber::kUnexpected, u"Error: Unexpected Error!."_s},
        {FaultNumber::kFileNotFound, u"Error: File not found!."_s},
        {FaultNumber::kInvalidPath, u"Error: invalid path!."_s},
        {FaultNumber::kFrameset, u"Error: the document contains a frameset!."_s},
        {FaultNumber::kServerScript, u"Error:  the document is mainly a  'server side script'."_s},
        {FaultNumber::kInvalidCall, u"Error: invalid subject!."_s},
        {FaultNumber::kPermissionDenied, u"Error: Access denied!."_s},
        {FaultNumber::kTypeMismatch, u"Unknown Error!."_s},
    };
    for (const auto& [number, text] : loads) EXPECT_EQ(load_fault_message(number), load + text);

    const QString save = u"Error occurred in the saving of the page: "_s;
    const std::vector<std::pair<FaultNumber, QString>> saves{
        {FaultNumber::kUnexpected, u"Unexpected error."_s},    {FaultNumber::kInvalidPath, u"Path not found."_s},
        {FaultNumber::kWriteDiskFull, u"Disk is full."_s},     {FaultNumber::kInvalidCall, u"Invalid argument."_s},
        {FaultNumber::kPermissionDenied, u"Access denied."_s}, {FaultNumber::kAlreadyExists, u"Unknown error."_s},
    };
    for (const auto& [number, text] : saves) EXPECT_EQ(save_fault_message(number), save + text);
}

/// The progress of a test: which texts were shown.
class RecordedProgress : public Progress {
  public:
    void begin(const QString& what, const QString& state, int) override { shown += what + u'|' + state; }
    void advance(int) override {}
    void end() override { ++ended; }

    QStringList shown;
    int ended = 0;
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
    [[nodiscard]] QByteArray bytes(const QString& name) const { return read_file(path(name)).value_or("no file"); }

    void write(const QString& name, const QByteArray& bytes) const { ASSERT_TRUE(write_file(path(name), bytes)); }
    void write_page(const QString& name, const QByteArray& body) const {
        write(name, "<HTML><BODY>" + body + "</BODY></HTML>");
    }

    QTemporaryDir home_;
    Roots roots_{home_.filePath(u"Pondera_Folder"_s)};
    DHTMLEdit editor_;
    ScriptedPrompts prompts_;
    RecordedProgress progress_;
    bool may_convert_ = true;
    OpenPage page_{roots_, editor_, prompts_, progress_, [this] { return may_convert_; }};
};

TEST_F(OpenPageTest, EditingCopyIsFoundInTheLoadersOrder) {
    write_page(u"çindex.htm"_s, "home");
    write_page(u"§_4_Subject.htm"_s, "subject");
    write_page(u"§_2_Trips.htm"_s, "trips two");
    write_page(u"§_4_Trips.htm"_s, "trips four");
    write_page(u"§Trips.htm"_s, "trips plain");
    struct Case {
        QString name;
        QString file;
        QString page;
        PageKind kind;
        QString label;
    };
    for (const Case& c :
         {Case{u"index.htm"_s, u"çindex.htm"_s, u"index.htm"_s, PageKind::kNone, u"HOME PAGE"_s},
          Case{u"index"_s, u"çindex.htm"_s, u"index.htm"_s, PageKind::kNone, u"HOME PAGE"_s},
          Case{u"Subject"_s, u"§_4_Subject.htm"_s, u"_4_Subject.htm"_s, PageKind::kSubject, u"Subject"_s},
          Case{u"§_4_Subject.htm"_s, u"§_4_Subject.htm"_s, u"_4_Subject.htm"_s, PageKind::kSubject, u"Subject"_s},
          Case{u"_2_Trips"_s, u"§_2_Trips.htm"_s, u"_2_Trips.htm"_s, PageKind::kPhotoShow, u"Trips  [photo-show]"_s},
          Case{u"Trips"_s, u"§Trips.htm"_s, u"Trips.htm"_s, PageKind::kNone, u"Trips"_s}}) {
        ASSERT_TRUE(page_.NUOVA_VIDEATA(folder(), c.name)) << c.name.toStdString();
        EXPECT_EQ(editor_.document_path(), path(c.file));
        EXPECT_EQ(page_.page(), c.page);
        EXPECT_EQ(page_.kind(), c.kind);
        EXPECT_EQ(page_.label(), c.label);
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
    write_page(u"§_4_A.htm"_s, "page A");
    ASSERT_TRUE(page_.NUOVA_VIDEATA(folder(), u"_4_A.htm"_s));
    write(u"_4_Frames.htm"_s, "<HTML><FRAMESET cols=\"1,2\"><FRAME src=a></FRAMESET></HTML>");
    write(u"_4_Script.htm"_s, "<%= response.write(now) %>");
    write(u"_4_Binary.htm"_s, QByteArray("GIF89a\0\0\1", 9));
    const std::vector<std::pair<QString, QString>> cases{
        {u"_4_Frames.htm"_s, u"Error: the document contains a frameset!."_s},
        {u"_4_Script.htm"_s, u"'server side script'."_s},
        {u"_4_Binary.htm"_s, u"Error: the document is not a text!."_s},
        {u"_4_Gone.htm"_s, u"Error: File not found!."_s},
        {u"../Shop/_4_A.htm"_s, u"Error: invalid path!."_s},
    };
    for (const auto& [name, message] : cases) {
        prompts_.expect_message(message);
        EXPECT_FALSE(page_.NUOVA_VIDEATA(folder(), name));
        EXPECT_FALSE(QFileInfo::exists(path(u'§' + name))) << "no editing copy is left of what cannot be edited";
        EXPECT_EQ(page_.page(), u"_4_A.htm"_s);
        EXPECT_THAT(editor_.text().toStdString(), testing::HasSubstr("page A"));
    }
    prompts_.expect_message(u"Error: invalid path!."_s);
    EXPECT_FALSE(page_.NUOVA_VIDEATA(folder() + u"/gone"_s, u"_4_A.htm"_s));
    for (const Message& message : prompts_.messages()) EXPECT_EQ(message.icon, MessageIcon::kCritical);
}

TEST_F(OpenPageTest, SavingWritesEditingCopyAndPublishedPageInTheEncodingOfThePage) {
    write_page(u"§_4_A.htm"_s, "<P>caff\xE8</P><A href=\"\xA7_4_B.htm\">B</A>");
    ASSERT_TRUE(page_.NUOVA_VIDEATA(folder(), u"_4_A.htm"_s));
    editor_.paste_at_end(
        u"<IMG src=\"%1/media/img/a.gif\" style=\"position:absolute; left:5; top:5\">"_s.arg(folder()));
    EXPECT_TRUE(editor_.modified());
    ASSERT_TRUE(page_.Salvataggio_Doc_Cor());
    EXPECT_FALSE(editor_.modified());
    EXPECT_THAT(bytes(u"§_4_A.htm"_s).toStdString(), testing::HasSubstr("<P>caff\xE8</P>"));
    EXPECT_THAT(bytes(u"§_4_A.htm"_s).toStdString(), testing::HasSubstr("href=\"\xA7_4_B.htm\""));
    const std::string published = bytes(u"_4_A.htm"_s).toStdString();
    EXPECT_THAT(published, testing::HasSubstr("<P>caff\xE8</P>"));
    EXPECT_THAT(published, testing::HasSubstr("href=\"_4_B.htm\""));
    EXPECT_THAT(published, testing::HasSubstr("src=\"media/img/a.gif\""));
    EXPECT_EQ(progress_.shown, (QStringList{u"Wait|"_s, u"Save of page|in progress..."_s}));
    EXPECT_EQ(progress_.ended, 2);

    const QByteArray first = bytes(u"§_4_A.htm"_s) + bytes(u"_4_A.htm"_s);
    ASSERT_TRUE(page_.Salvataggio_Doc_Cor());
    EXPECT_EQ(bytes(u"§_4_A.htm"_s) + bytes(u"_4_A.htm"_s), first) << "saved untouched, the same bytes";
}

TEST_F(OpenPageTest, WithoutConversionOnlyTheEditingCopyIsWritten) {
    write_page(u"çindex.htm"_s, "home");
    ASSERT_TRUE(page_.NUOVA_VIDEATA(folder(), u"index.htm"_s));
    may_convert_ = false;
    EXPECT_TRUE(page_.Salvataggio_Doc_Cor());
    EXPECT_FALSE(QFileInfo::exists(path(u"index.htm"_s)));
    may_convert_ = true;
    EXPECT_TRUE(page_.Salvataggio_Doc_Cor());
    EXPECT_TRUE(QFileInfo::exists(path(u"index.htm"_s)));
}

TEST_F(OpenPageTest, AnotherProgramsChangeIsNeverOverwrittenUnasked) {
    write_page(u"§_4_A.htm"_s, "first");
    ASSERT_TRUE(page_.NUOVA_VIDEATA(folder(), u"_4_A.htm"_s));
    editor_.paste_at_end(u"<P>mine</P>"_s);
    write_page(u"§_4_A.htm"_s, "theirs");

    prompts_.expect_message(u"changed by another program"_s, Answer::kCancel);
    EXPECT_FALSE(page_.Salvataggio_Doc_Cor());
    EXPECT_THAT(bytes(u"§_4_A.htm"_s).toStdString(), testing::HasSubstr("theirs"));

    prompts_.expect_message(u"changed by another program"_s, Answer::kReload);
    EXPECT_FALSE(page_.Salvataggio_Doc_Cor());
    EXPECT_THAT(editor_.text().toStdString(), testing::HasSubstr("theirs"));
    EXPECT_TRUE(page_.Salvataggio_Doc_Cor()) << "what was loaded is not asked about again";

    write_page(u"§_4_A.htm"_s, "theirs again");
    prompts_.expect_message(u"changed by another program"_s, Answer::kOverwrite);
    ASSERT_TRUE(editor_.execute(EditCommand::kUndo)) << "the page before it was loaded";
    EXPECT_TRUE(page_.Salvataggio_Doc_Cor());
    EXPECT_THAT(bytes(u"§_4_A.htm"_s).toStdString(), testing::HasSubstr("<P>mine</P>"));
    EXPECT_THAT(bytes(u"_4_A.htm"_s).toStdString(), testing::HasSubstr("<P>mine</P>"));
}

TEST_F(OpenPageTest, ReloadTakesACommandsChangeFromDiskAsOneStep) {
    write_page(u"§_4_A.htm"_s, "first");
    ASSERT_TRUE(page_.NUOVA_VIDEATA(folder(), u"_4_A.htm"_s));
    write_page(u"§_4_A.htm"_s, "second");
    ASSERT_TRUE(page_.reload());
    EXPECT_THAT(editor_.text().toStdString(), testing::HasSubstr("second"));
    EXPECT_TRUE(page_.Salvataggio_Doc_Cor());
    ASSERT_TRUE(editor_.execute(EditCommand::kUndo));
    EXPECT_THAT(editor_.text().toStdString(), testing::HasSubstr("first"));

    ASSERT_TRUE(QFile::remove(path(u"§_4_A.htm"_s)));
    prompts_.expect_message(u"Error: File not found!."_s);
    EXPECT_FALSE(page_.reload());
}

TEST_F(OpenPageTest, AFolderThatVanishedLosesNothing) {
    write_page(u"§_4_A.htm"_s, "first");
    ASSERT_TRUE(page_.NUOVA_VIDEATA(folder(), u"_4_A.htm"_s));
    editor_.paste_at_end(u"<P>mine</P>"_s);
    ASSERT_TRUE(QDir(folder()).removeRecursively());
    prompts_.expect_message(u"Error occurred in the saving of the page: Path not found."_s);
    EXPECT_FALSE(page_.Salvataggio_Doc_Cor());
    EXPECT_TRUE(editor_.modified());
    EXPECT_THAT(editor_.text().toStdString(), testing::HasSubstr("mine"));
}

TEST_F(OpenPageTest, APublishedPageThatCannotBeWrittenIsTold) {
    write_page(u"§_4_A.htm"_s, "x");
    ASSERT_TRUE(page_.NUOVA_VIDEATA(folder(), u"_4_A.htm"_s));
    ASSERT_TRUE(QDir().mkdir(path(u"_4_A.htm"_s))) << "a folder stands where the published page is to be written";
    prompts_.expect_message(u"Error occurred in the saving of the page: "_s);
    EXPECT_FALSE(page_.Salvataggio_Doc_Cor());
    EXPECT_TRUE(editor_.modified()) << "there is still something to save";
    ASSERT_TRUE(QDir().rmdir(path(u"_4_A.htm"_s)));
    EXPECT_TRUE(page_.Salvataggio_Doc_Cor());
    EXPECT_FALSE(editor_.modified());
}

}  // namespace

}  // namespace pondera
