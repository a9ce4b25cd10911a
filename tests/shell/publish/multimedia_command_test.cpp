#include "tests/shell/window/window_fixture.h"

namespace pondera {

class MultimediaCommand : public WindowFixture {
  protected:
    void SetUp() override {
        WindowFixture::SetUp();
        have_shipped_files();
        open(u"Shop"_s);
    }

    [[nodiscard]] QString package(const QString& file = {}) const {
        return QDir(roots_.drive_root()).filePath(u"Shop Multimedia/"_s + file);
    }
};

TEST_F(MultimediaCommand, SavesThePageAndMakesAPackageWhoseProgramsCanBeStarted) {
    write(u"Shop"_s, u"§_4_New.htm"_s, u"<P>Only here</P>"_s);
    change_page(u"my words"_s);
    const auto confirm = [&](const FormHand& form) {
        EXPECT_EQ(form.widget<QLabel>(u"Label1"_s).text(),
                  u"The Multimedia is being created on Hard-Disk "_s + QDir::cleanPath(package()));
        form.photograph(u"multimedia"_s).click(u"OKButton"_s);
    };
    run_form(u"mnu_player"_s, u"frm_player"_s, confirm,
             {u"Creation successfully completed in '%1'"_s.arg(QDir::cleanPath(package()))});
    for (const QString& page : {u"index.htm"_s, u"_4_New.htm"_s, u"_4_Trips.htm"_s})
        EXPECT_TRUE(QFileInfo::exists(package(u"Shop/"_s + page))) << page.toStdString();
    EXPECT_THAT(read_text_file(package(u"Shop/index.htm"_s))->text, Holds(u"my words"_s));
    for (const QString& program :
         {u"multimedia.exe"_s, u"Install Shop/Install Shop.exe"_s, u"Install Shop/Uninstall.exe"_s, u"autorun.sh"_s})
        EXPECT_TRUE(QFileInfo(package(program)).isExecutable()) << program.toStdString();
}

TEST_F(MultimediaCommand, TellsAllThatFailedAndCanBeTriedAgain) {
    const QString autorun = QDir(roots_.tools_folder()).filePath(u"AUTORUN.INF"_s);
    ASSERT_TRUE(QFile::rename(autorun, autorun + u'x'));
    const auto twice = [&](const FormHand& form) {
        form.click(u"OKButton"_s);
        EXPECT_TRUE(QFile::rename(autorun + u'x', autorun));
        form.click(u"OKButton"_s);
    };
    run_form(u"mnu_player"_s, u"frm_player"_s, twice,
             {u"Error occurred in the copy of file 'AUTORUN.INF': "_s + autorun + u" does not exist."_s,
              u"Creation successfully completed"_s});
}

TEST_F(MultimediaCommand, CancelWhileCopyingTakesTheNewPackageAway) {
    run_form(u"mnu_player"_s, u"frm_player"_s, [&](const FormHand& form) {
        auto& bar = form.widget<QProgressBar>(u"ProgressBar1"_s);
        QObject::connect(&bar, &QProgressBar::valueChanged, &bar, [&](int done) {
            if (done != 5) return;
            EXPECT_FALSE(form.form().findChild<QPushButton*>(u"OKButton"_s)->isEnabled());
            form.form().reject();
        });
        form.click(u"OKButton"_s);
    });
    EXPECT_FALSE(QFileInfo::exists(package()));
}

}  // namespace pondera
