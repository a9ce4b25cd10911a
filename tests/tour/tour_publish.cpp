#include "publish/sending/checksum.h"
#include "site/published_files.h"
#include "tests/publish/transfer/real_server.h"
#include "tests/tour/tour_fixture.h"

namespace pondera {

/// All files of a folder that visitors get, with their checksums.
static QStringList contents(const QString& folder) {
    QStringList files = published_files(folder).value_or(QStringList());
    for (QString& file : files) {
        const QByteArray bytes = read_file(QDir(folder).filePath(file)).value_or("missing");
        file += u' ' + QString::fromLatin1(Checksum::of(bytes));
    }
    return files;
}

/// Publishes the Website of the tours before on a server of its own, and once more after a change.
TEST_F(Tour, TheWebsiteIsPublishedOnAServerAndOnACdRom) {
    const RealServer server(RealServer::Kind::kPyftpdlib, true);
    open(u"Lighthouse"_s);
    const QDir folder(workbench().website_folder());
    const auto published = [&] { return contents(folder.path()); };
    // Large enough that the sending can be watched.
    QFile film(folder.filePath(u"media/video/Waves.mp4"_s));
    ASSERT_TRUE(QDir().mkpath(folder.filePath(u"media/video"_s)) && film.open(QIODevice::WriteOnly));
    ASSERT_TRUE(film.resize(100 << 20));
    film.close();

    const auto publish = [&](const FormHand& form, const QString& picture) {
        const auto& info = form.widget<QPlainTextEdit>(u"Info"_s);
        form.widget<QComboBox>(u"Nome_Host"_s).setEditText(server.host());
        form.photograph(picture).click(u"Collegati"_s);
        ASSERT_TRUE(wait_until([&] { return info.toPlainText().startsWith(u"Connected."_s); }));
        form.photograph(picture + u"-connected"_s).click(u"cmdSel"_s);
        if (picture == u"publish") {
            EXPECT_TRUE(wait_until([&] { return form.widget<QProgressBar>(u"ProgressBar1"_s).value() > 0; }));
            form.photograph(u"publish-at-work"_s);
        }
        EXPECT_TRUE(wait_until([&] { return form.widget<QLabel>(u"lblHint"_s).text().startsWith(u"Published."_s); }));
        form.photograph(picture + u"-done"_s).click(u"OKButton"_s);
    };
    const auto first_time = [&](const FormHand& form) {
        form.type(u"Nome_Host"_s, server.host()).type(u"user_id"_s, u"anonymous"_s).type(u"password"_s, u"secret"_s);
        publish(form.click(u"chkSalvaDati"_s), u"publish"_s);
    };
    prompts_.expect_form(u"Frm_Connessione_Remota2"_s, first_time);
    run_told(u"mnu_pubblica"_s, u"cannot prove"_s, Answer::kYes);
    const QString site = server.path(u"Vantiles/Lighthouse"_s);
    EXPECT_EQ(contents(site), published());

    type_over(u"h1"_s, u"The lighthouse is open again"_s);
    ASSERT_TRUE(workbench().save());
    ASSERT_NE(contents(site), published());
    run_form(u"mnu_pubblica"_s, u"Frm_Connessione_Remota2"_s,
             [&](const FormHand& form) { publish(form, u"publish-again"_s); });
    EXPECT_EQ(contents(site), published());

    // What another program fetches from the server is the Website, byte for byte.
    const QString back = roots_.drive_root() + u"/Back"_s;
    const QString fetch =
        u"set ssl:verify-certificate no; open -u anonymous,x ftp://%1; mirror %2/Vantiles/Lighthouse %3"_s;
    EXPECT_EQ(QProcess::execute(u"lftp"_s, {u"-c"_s, fetch.arg(server.host(), server.remote_root(), back)}), 0);
    EXPECT_EQ(contents(back), published());

    ASSERT_TRUE(film.remove());
    const auto make = [](const FormHand& form) { form.photograph(u"cd-rom"_s).click(u"OKButton"_s); };
    run_form(u"mnu_player"_s, u"frm_player"_s, make, {u"Creation successfully completed in"_s});
    const QDir package(roots_.drive_root() + u"/Lighthouse Multimedia"_s);
    EXPECT_EQ(contents(package.filePath(u"Lighthouse"_s)), published());
    EXPECT_TRUE(QFileInfo(package.filePath(u"multimedia.exe"_s)).isExecutable());
}

}  // namespace pondera
