#include <QDir>
#include <QTest>
#include <QWebEngineView>
#include <QtWidgets>

#include "base/text_file.h"
#include "site/published_files.h"
#include "tests/publish/transfer/real_server.h"
#include "tests/tour/tour_fixture.h"

namespace pondera {
namespace {

/// Files of a folder with their checksums, a line each.
QStringList contents(const QDir& folder, const QStringList& files) {
    QStringList lines;
    for (const QString& file : files)
        lines << file + u' ' +
                     QString::fromLatin1(QCryptographicHash::hash(read_file(folder.filePath(file)).value_or("missing"),
                                                                  QCryptographicHash::Sha256)
                                             .toHex());
    lines.sort();
    return lines;
}

QStringList contents(const QDir& folder) {
    QStringList files;
    QDirIterator all(folder.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (all.hasNext()) files << folder.relativeFilePath(all.next());
    return contents(folder, files);
}

}  // namespace

/// Publishes the Website of the tours before on a server of its own, and once more after a change.
TEST_F(Tour, TheWebsiteIsPublishedOnAServerAndOnACdRom) {
    const RealServer server(RealServer::Kind::kPyftpdlib, true);
    ASSERT_NO_FATAL_FAILURE(open_window());
    Workbench& workbench = window_->workbench();
    ASSERT_TRUE(workbench.open_website(u"Lighthouse"_s));
    const QDir folder(workbench.website_folder());
    const auto published = [&] { return contents(folder, published_files(folder.path()).value_or(QStringList())); };
    // Large enough that the sending can be watched.
    QFile film(folder.filePath(u"media/video/Waves.mp4"_s));
    ASSERT_TRUE(QDir().mkpath(folder.filePath(u"media/video"_s)) && film.open(QIODevice::WriteOnly));
    ASSERT_TRUE(film.resize(100 << 20));
    film.close();

    const auto connected = [](const FormHand& form) {
        return wait_until(
            [&] { return form.widget<QPlainTextEdit>(u"Info"_s).toPlainText().startsWith(u"Connected."); });
    };
    const auto connect_and_publish = [&](const FormHand& form, const QString& picture) {
        form.click(u"Collegati"_s);
        ASSERT_TRUE(connected(form));
        photograph(form.form(), picture + u"-connected"_s);
        form.click(u"cmdSel"_s);
        if (picture == u"publish") {
            EXPECT_TRUE(wait_until([&] { return form.widget<QProgressBar>(u"ProgressBar1"_s).value() > 0; }));
            photograph(form.form(), picture + u"-at-work"_s);
        }
        ASSERT_TRUE(connected(form));
        photograph(form.form(), picture + u"-done"_s);
        form.click(u"OKButton"_s);
    };

    prompts_
        .expect_form(u"Frm_Connessione_Remota2"_s,
                     [&](const FormHand& form) {
                         form.widget<QComboBox>(u"Nome_Host"_s).setEditText(server.host());
                         form.type(u"user_id"_s, u"anonymous"_s).type(u"password"_s, u"secret"_s);
                         form.click(u"chkSalvaDati"_s);
                         photograph(form.form(), u"publish"_s);
                         connect_and_publish(form, u"publish"_s);
                     })
        .expect_message(u"certificate"_s, Answer::kYes);
    trigger(u"mnu_pubblica"_s);
    const QDir site(server.path(u"Vantiles/Lighthouse"_s));
    EXPECT_EQ(contents(site), published());

    select_paragraph(u"h1"_s);
    type(u"The lighthouse is open again"_s);
    ASSERT_TRUE(workbench.save());
    ASSERT_NE(contents(site), published());
    prompts_.expect_form(u"Frm_Connessione_Remota2"_s, [&](const FormHand& form) {
        form.widget<QComboBox>(u"Nome_Host"_s).setEditText(server.host());
        connect_and_publish(form, u"publish-again"_s);
    });
    trigger(u"mnu_pubblica"_s);
    EXPECT_EQ(contents(site), published());

    // What another program fetches from the server is the Website, byte for byte.
    const QDir back(roots_.drive_root() + u"/Back"_s);
    const QString fetch =
        u"set ssl:verify-certificate no; open -u anonymous,x ftp://%1; mirror %2/Vantiles/Lighthouse %3"_s;
    EXPECT_EQ(QProcess::execute(u"lftp"_s, {u"-c"_s, fetch.arg(server.host(), server.remote_root(), back.path())}), 0);
    EXPECT_EQ(contents(back), published());

    ASSERT_TRUE(film.remove());
    prompts_
        .expect_form(u"frm_player"_s,
                     [&](const FormHand& form) {
                         photograph(form.form(), u"cd-rom"_s);
                         form.click(u"OKButton"_s);
                     })
        .expect_message(u"Creation successfully completed in"_s);
    trigger(u"mnu_player"_s);
    const QDir package(roots_.drive_root() + u"/Lighthouse Multimedia"_s);
    EXPECT_EQ(contents(QDir(package.filePath(u"Lighthouse"_s))), published());
    EXPECT_TRUE(QFileInfo(package.filePath(u"multimedia.exe"_s)).isExecutable());
}

}  // namespace pondera
