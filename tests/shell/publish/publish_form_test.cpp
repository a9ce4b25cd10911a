#include "publish/ftp/publish_form.h"

#include "publish/ftp/ftp_settings.h"
#include "publish/ftp/host_memory.h"
#include "publish/sending/publication_record.h"
#include "tests/publish/transfer/bad_server.h"
#include "tests/publish/transfer/real_server.h"
#include "tests/shell/publish/publish_fixture.h"
#include "tests/support/folder_text.h"

namespace pondera {

/// The Website "Shop" with a picture, and the dialog that publishes it.
class PublishDialog : public PublishFixture {
  protected:
    PublishDialog() : PublishFixture(u"mnu_pubblica"_s, u"Frm_Connessione_Remota2"_s) {}

    void SetUp() override {
        WindowFixture::SetUp();
        picture_ = make_picture(u"Pondera_Folder/Pondera/Shop/media/img/Sea.gif"_s, {20, 20});
        open(u"Shop"_s);
    }

    static void log_in(const FormHand& form, const QString& host, const QString& user = u"anonymous"_s,
                       const QString& password = u"secret"_s) {
        form.type(u"Nome_Host"_s, host).type(u"user_id"_s, user).type(u"password"_s, password);
        do_and_wait(form, u"Collegati"_s);
    }

    /// Publishes, after which the dialog says `said`.
    static void publish(const FormHand& form, const QString& said) {
        do_and_wait(form, u"cmdSel"_s);
        EXPECT_EQ(text(form, u"lblHint"_s), said);
    }

    QString picture_;
};

const QString kWrongState = u"Connecting before or wait for the end of the operations"_s;

TEST_F(PublishDialog, PublishesThenOnlyWhatChangedAndEmptiesTheServer) {
    const RealServer server(RealServer::Kind::kVsftpd, false);
    in_dialog([&](const FormHand& form) {
        for (const auto* bar : form.form().findChildren<QScrollBar*>()) EXPECT_FALSE(bar->isVisible());
        for (const QString& button : {u"cmdSel"_s, u"cmdDesel"_s, u"cmdUpdate"_s, u"cmdFile"_s}) {
            prompts_.expect_message(kWrongState);
            form.click(button);
        }
        prompts_.expect_message(u"Insert the name of the remote host you want to connect to."_s);
        form.click(u"Collegati"_s);
        prompts_.expect_message(u"Insert all required data"_s);
        form.click(u"chkSalvaDati"_s).type(u"txtAddress"_s, u"shop.example.org"_s);
        log_in(form, server.host());
        EXPECT_TRUE(connected(form));
        EXPECT_THAT(text(form, u"lblHint"_s), Holds(u"Vantiles/Shop is not on the server yet"_s));
        EXPECT_EQ(text(form, u"lblProtection"_s), u"NOT protected: password and files travel in the open");
        publish(form, u"Published.\n4 files sent."_s);
        EXPECT_EQ(server.names(u"Vantiles/Shop/media/img"_s), QStringList(u"Sea.gif"_s));
        EXPECT_EQ(form.entries(u"Remoto"_s).join(u' '), u"_4_Trips.htm _x_Map.htm index.htm");
        EXPECT_THAT(text(form, u"lblCount"_s), Holds(u"4 of 4 files"_s));
        EXPECT_THAT(text(form, u"lblWebsite"_s),
                    Holds(u"Click here to go to the Website: <a href=\"http://shop.example"_s));
        publish(form, u"Everything is up to date."_s);
    });
    EXPECT_TRUE(QDir(roots_.ftp_folder()).isEmpty());
    EXPECT_EQ(ftp_hosts(roots_), QStringList(server.host()));

    // The next time, with one more server: another page, one picture less here, and one more there.
    ASSERT_TRUE(save_ftp_settings(ftp_settings_path(roots_, u"0.x.org"_s), {.host = u"0.x.org"_s}));
    write(u"Shop"_s, u"_4_Trips.htm"_s, u"<P>New trips</P>"_s);
    QFile::remove(picture_);
    ASSERT_TRUE(write_file(server.path(u"Vantiles/Shop/media/img/Their.JPG"_s), "theirs"));
    in_dialog([&](const FormHand& form) {
        EXPECT_EQ(form.widget<QLineEdit>(u"password"_s).text(), u"secret");
        auto& host = form.widget<QComboBox>(u"Nome_Host"_s);
        host.lineEdit()->selectAll();
        form.press(Qt::Key_Return);
        EXPECT_EQ(host.currentText(), server.host());
        wait(form);
        EXPECT_EQ(info(form), u"Connected.");
        publish(form, u"Published.\n1 file fetched from the server, 1 file sent, 1 file removed."_s);
        EXPECT_FALSE(QFileInfo::exists(picture_));
        EXPECT_EQ(read(u"Shop"_s, u"media/img/Their.JPG"_s), u"theirs");

        prompts_.expect_file(shop(u"çindex.htm"_s));
        do_and_wait(form, u"cmdFile"_s);
        EXPECT_EQ(text(form, u"lblHint"_s), u"Published.\n1 file sent.");
        prompts_.expect_file(home_.filePath(u"settings.ini"_s)).expect_message(u"Select a file of the Website"_s);
        form.click(u"cmdFile"_s);

        const QString question = u"Do you want to delete all files contained in the remote server?"_s;
        prompts_.expect_message(question, Answer::kNo);
        form.widget<QPushButton>(u"cmdDesel"_s).setFocus();
        form.press(Qt::Key_Return);
        prompts_.expect_message(question, Answer::kYes);
        do_and_wait(form, u"cmdDesel"_s);
        EXPECT_EQ(text_of_folder(server.path(u"Vantiles/Shop"_s)) + form.entries(u"Remoto"_s).join(u' '), u"");
        publish(form, u"Published.\n4 files sent."_s);

        do_and_wait(form, u"Collegati"_s);
        EXPECT_EQ(info(form), u"Disconnected");
        prompts_.expect_message(u"Are you sure you want to definitely delete the FTP data?"_s, Answer::kYes);
        form.click(u"chkDeleteData"_s);
        EXPECT_TRUE(form.widget<QPushButton>(u"Collegati"_s).isDefault());
        EXPECT_EQ(form.widget<QLineEdit>(u"password"_s).text(), QString());
    });
    EXPECT_EQ(ftp_hosts(roots_), QStringList(u"0.x.org"_s));
}

TEST_F(PublishDialog, WrongLoginsAreToldInPlainWords) {
    const RealServer server(RealServer::Kind::kPyftpdlib, false);
    in_dialog([&](const FormHand& form) {
        log_in(form, server.host(), u"known"_s, u"wr0ng"_s);
        EXPECT_EQ(info(form), u"The server signalled an error!");
        EXPECT_TRUE(text(form, u"lblHint"_s).startsWith(u"The server does not accept the password."_s));
        EXPECT_FALSE(text(form, u"lblHint"_s).contains(u"wr0ng"_s));
        EXPECT_EQ(form.form().focusWidget()->objectName(), u"password");
        log_in(form, u"127.0.0.1:1"_s);
        EXPECT_TRUE(text(form, u"lblHint"_s).startsWith(u"The server cannot be reached."_s));
        form.type(u"Nome_Host"_s, server.host()).type(u"txtSito"_s, u"../x"_s);
        prompts_.expect_message(u"There can be no folder"_s);
        form.click(u"Collegati"_s);
    });
}

TEST_F(PublishDialog, AServerThatCannotProveItselfIsTrustedOnceAndAnotherOneIsWarnedOf) {
    const RealServer server(RealServer::Kind::kVsftpd, true);
    const QString question = u"cannot prove that it is the one it says it is.\nNobody but the server itself"_s;
    in_dialog([&](const FormHand& form) {
        prompts_.expect_message(question, Answer::kNo);
        log_in(form, server.host());
        EXPECT_EQ(prompts_.messages().constLast().answers.constFirst(), Answer::kNo);
        EXPECT_TRUE(prompts_.messages().constLast().text.contains(u"test server"_s));
        EXPECT_EQ(text(form, u"lblProtection"_s), u"Not connected");
        prompts_.expect_message(question, Answer::kYes);
        do_and_wait(form, u"Collegati"_s);
        EXPECT_TRUE(text(form, u"lblProtection"_s).startsWith(u"Protected (TLS)"_s));
        do_and_wait(form, u"Collegati"_s);
        do_and_wait(form, u"Collegati"_s);
        EXPECT_TRUE(connected(form));
    });
    EXPECT_TRUE(HostMemory(settings_, server.host()).was_protected());
    for (const QString& key : settings_.allKeys())
        if (key.endsWith(u"Certificate"_s)) settings_.setValue(key, u"00"_s);
    in_dialog([&](const FormHand& form) {
        prompts_.expect_message(u"shows another identity"_s, Answer::kNo);
        log_in(form, server.host());
        EXPECT_FALSE(connected(form));
    });
}

TEST_F(PublishDialog, AServerThatWasProtectedGetsNoPasswordInTheOpenUnasked) {
    BadServer server;
    HostMemory(settings_, server.host()).set_protected(true);
    const QString question = u"the server offers no protection"_s;
    in_dialog([&](const FormHand& form) {
        prompts_.expect_message(question, Answer::kNo);
        log_in(form, server.host());
        EXPECT_EQ(prompts_.messages().constLast().answers.constFirst(), Answer::kNo);
        EXPECT_EQ(server.count("USER") + server.count("PASS"), 0);
        EXPECT_TRUE(text(form, u"lblHint"_s).contains(u"Your password was not sent."_s));
        prompts_.expect_message(question, Answer::kYes);
        do_and_wait(form, u"Collegati"_s);
        EXPECT_TRUE(connected(form));
        do_and_wait(form, u"Collegati"_s);
        do_and_wait(form, u"Collegati"_s);
        EXPECT_TRUE(connected(form));

        server.instead = [](const QByteArray&) { return "530 no"; };
        do_and_wait(form, u"cmdUpdate"_s);
        EXPECT_EQ(text(form, u"lblHint"_s), u"The server does not show this folder: 530 no");
    });
}

TEST_F(PublishDialog, StopEndsEveryStageBeforeTheSending) {
    BadServer server;
    in_dialog([&](const FormHand& form) {
        for (const QString& stage : {u"Verify Files to send.."_s, u"Preparing the files.."_s}) {
            log_in(form, server.host());
            QTimer looks;
            QObject::connect(&looks, &QTimer::timeout, [&] {
                if (text(form, u"Prog_Etichetta"_s) != stage) return;
                looks.stop();
                form.click(u"cmdStop"_s);
            });
            looks.start();
            do_and_wait(form, u"cmdSel"_s);
            EXPECT_TRUE(text(form, u"lblHint"_s).startsWith(u"Stopped."_s)) << stage.toStdString();
            EXPECT_EQ(server.count("STOR"), 0);
            EXPECT_TRUE(QDir(roots_.ftp_folder()).isEmpty());
            do_and_wait(form, u"Collegati"_s);
        }
    });
    EXPECT_FALSE(PublicationRecord::was_interrupted(shop()));
}

TEST_F(PublishDialog, WhatWasStoppedOrRefusedGoesOnTheNextTime) {
    BadServer server;
    bool hangs = true;
    server.instead = [&](const QByteArray& line) -> std::optional<QByteArray> {
        if (line.startsWith("LIST")) return "451 no lists today";
        if (line.startsWith("STOR") && hangs && server.count("STOR") > 2) return "";
        if (!hangs && line.endsWith("index.htm") && (line.startsWith("STOR") || line.startsWith("RNTO")))
            return "553 <b>not this one";
        return std::nullopt;
    };
    in_dialog([&](const FormHand& form) {
        log_in(form, server.host());
        form.click(u"cmdSel"_s);
        ASSERT_TRUE(QTest::qWaitFor([&] { return server.count("STOR") > 2; }));
        prompts_.expect_message(kWrongState);
        form.click(u"cmdDesel"_s);
        prompts_.expect_message(u"Do you want to stop that and close?"_s, Answer::kNo);
        form.click(u"cmdAnnulla"_s).click(u"cmdStop"_s);
        wait(form);
        EXPECT_TRUE(text(form, u"lblHint"_s).startsWith(u"Stopped."_s));
        EXPECT_EQ(info(form), u"Disconnected");
        EXPECT_TRUE(QDir(roots_.ftp_folder()).isEmpty());

        hangs = false;
        server.commands.clear();
        do_and_wait(form, u"Collegati"_s);
        prompts_.expect_form(u"Frm_Rifiutati"_s, [](const FormHand& list) {
            EXPECT_EQ(list.entries(u"list"_s), QStringList(u"index.htm"_s));
            EXPECT_TRUE(list.widget<QTreeWidget>(u"list"_s).topLevelItem(0)->toolTip(1).contains(u"&lt;b&gt;not"_s));
            list.click(u"CancelButton"_s);
        });
        publish(form, u"Published.\n1 file sent, 1 file refused by the server."_s);
    });
    EXPECT_FALSE(PublicationRecord::was_interrupted(shop()));

    // Closing in the middle ends it all; what a power cut left is pointed out.
    hangs = true;
    ASSERT_TRUE(write_file(shop(u"§_elencotemp.pnd"_s), "x"));
    run_form(u"mnu_pubblica"_s, u"Frm_Connessione_Remota2"_s, [&](const FormHand& form) {
        EXPECT_TRUE(text(form, u"lblHint"_s).startsWith(u"The last publication did not come to its end."_s));
        server.commands = {"STOR", "STOR"};
        log_in(form, server.host());
        form.click(u"cmdSel"_s);
        ASSERT_TRUE(QTest::qWaitFor([&] { return server.count("STOR") > 2; }));
        prompts_.expect_message(u"Do you want to stop that and close?"_s, Answer::kYes);
        form.press(Qt::Key_Escape);
        EXPECT_EQ(dynamic_cast<PublishForm&>(form.form()).closed_by(), u"CANCEL");
    });
    EXPECT_FALSE(PublicationRecord::was_interrupted(shop()));
}

}  // namespace pondera
