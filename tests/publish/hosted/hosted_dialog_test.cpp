#include "base/files.h"
#include "publish/hosted/hosted_login.h"
#include "tests/publish/transfer/bad_server.h"
#include "tests/publish/transfer/real_server.h"
#include "tests/shell/publish/publish_fixture.h"
#include "tests/support/folder_text.h"

namespace pondera {

/// The Website "Shop" with a picture and a film, and a hosting service with the sub-domain "bakery".
class HostedDialog : public PublishFixture {
  protected:
    HostedDialog() : PublishFixture(u"mnu_pubblica_dominio"_s, u"Frm_Connessione_Remota"_s) {}

    void SetUp() override {
        WindowFixture::SetUp();
        put(settings_of_service(), "host = 127.0.0.1\nport = " + server_.host().section(u':', 1).toUtf8() +
                                       "\naddress = http://DOMAIN.hosting.example/\n"
                                       "new domain page = https://www.hosting.example/new.htm\n");
        for (const QString& file : {u"media/img/Sea.gif"_s, u"media/video/Sea.mp4"_s, u"media/img/Thumbs.db"_s})
            put(shop(file), "sea");
        server_.put(u"public_html/bakery/domain.txt"_s, "password=bread\r\n");
        server_.put(u"public_html/bakery/.ftpquota"_s, "9");
        server_.put(u"public_html/bakery/cgi-bin/mail.pl"_s, "x");
        server_.put(u"public_html/other/index.htm"_s, "another's");
        open(u"Shop"_s);
    }

    static void put(const QString& path, const QByteArray& bytes) {
        ASSERT_TRUE(create_folders(QFileInfo(path).path()) && write_file(path, bytes)) << path.toStdString();
    }

    [[nodiscard]] QString settings_of_service() const {
        return QDir(roots_.tools_folder()).filePath(u"sHosting.txt"_s);
    }
    static const FormHand& fill(const FormHand& form, const QString& domain, const QString& password) {
        form.type(u"user_id"_s, u"anonymous"_s).type(u"password"_s, u"secret"_s);
        return form.type(u"txtDomain"_s, domain).type(u"txtPassword"_s, password);
    }
    static void log_in(const FormHand& form, const QString& domain, const QString& password) {
        do_and_wait(fill(form, domain, password), u"Collegati"_s);
    }

    static bool connected(const FormHand& form) { return info(form).startsWith(u"Connected."_s); }
    [[nodiscard]] QStringList on_server(const QString& folder) const {
        return server_.names(u"public_html/"_s + folder);
    }
    [[nodiscard]] bool has_copy() const { return QFile::exists(account_copy_path(roots_)); }

    RealServer server_{RealServer::Kind::kVsftpd, false};
};

TEST_F(HostedDialog, PublishesToTheSubDomainAndEmptiesItButForTheServicesFiles) {
    in_dialog([&](const FormHand& form) {
        form.photograph(u"hosted_new"_s);
        EXPECT_EQ(form.widget<QComboBox>(u"Nome_Host"_s).currentText(), server_.host());
        EXPECT_THAT(text(form, u"lblNewDomain"_s), Holds(u"https://www.hosting.example/new.htm"_s));
        EXPECT_TRUE(QDir(roots_.ftp_folder()).exists() && QDir(roots_.ftp_total_folder()).exists());
        log_in(form, u"http://bakery.hosting.example/"_s, u"bread"_s);
        EXPECT_TRUE(connected(form));
        EXPECT_EQ(text(form, u"lblHint"_s), u"The Website goes to the folder public_html/bakery.");
        EXPECT_FALSE(has_copy());
        EXPECT_EQ(form.entries(u"Remoto"_s), QStringList());
        form.click(u"optTotal"_s);
        do_and_wait(form, u"cmdSel"_s);
        EXPECT_EQ(text(form, u"lblHint"_s), u"Published.\n5 files sent.");
        EXPECT_THAT(text(form, u"lblWebsite"_s), Holds(u"http://bakery.hosting.example/"_s));
        EXPECT_EQ(form.entries(u"Remoto"_s).join(u' '), u"_4_Trips.htm _x_Map.htm index.htm media/");
        form.photograph(u"hosted_published"_s);

        EXPECT_EQ(on_server(u"bakery/media/img"_s), QStringList(u"Sea.gif"_s));
        prompts_.expect_message(u"Do you want to delete all files contained in the remote server?"_s, Answer::kYes);
        do_and_wait(form, u"cmdDesel"_s);
        EXPECT_EQ(form.entries(u"Remoto"_s), QStringList());
    });
    EXPECT_EQ(on_server(u"bakery"_s), QStringList({u".ftpquota"_s, u"cgi-bin"_s, u"domain.txt"_s}));
    EXPECT_EQ(on_server(u"bakery/cgi-bin"_s), QStringList(u"mail.pl"_s));
    EXPECT_EQ(on_server(u"other"_s), QStringList(u"index.htm"_s));
}

TEST_F(HostedDialog, WrongDataLeaveNoConnection) {
    const QString before = text_of_folder(server_.path(u"public_html"_s));
    in_dialog([&](const FormHand& form) {
        for (const QString& password : {u"Bread"_s, u"password"_s}) {
            prompts_.expect_message(u"Incorrected data"_s);
            log_in(form, u"bakery"_s, password);
            EXPECT_FALSE(connected(form) || has_copy());
        }
        prompts_.expect_message(u"Incorrected data"_s);
        log_in(form, u"nobody"_s, u"bread"_s);
        EXPECT_THAT(text(form, u"lblHint"_s), Holds(u"The server says: 550 "_s));

        put(account_copy_path(roots_) + u"/folder"_s, "in its place");
        prompts_.expect_message(u"Error in deletion of temporary file!"_s);
        log_in(form, u"bakery"_s, u"bread"_s);
        EXPECT_THAT(text(form, u"lblHint"_s), Holds(u"cannot be written"_s));
        QDir(account_copy_path(roots_)).removeRecursively();
        QDir(server_.path({})).rename(u"public_html"_s, u"www"_s);
        log_in(form, u"bakery"_s, u"bread"_s);
        EXPECT_THAT(text(form, u"lblHint"_s), Holds(u"no folder \"public_html\""_s));
        EXPECT_FALSE(connected(form) || has_copy());
        QDir(server_.path({})).rename(u"www"_s, u"public_html"_s);
    });
    EXPECT_EQ(text_of_folder(server_.path(u"public_html"_s)), before);
}

TEST_F(HostedDialog, AccountCopyIsItsOwnersAndGoesWhenThePersonStops) {
    BadServer silent;
    silent.replies = {{"RETR", ""}};
    in_dialog([&](const FormHand& form) {
        fill(form.type(u"Nome_Host"_s, silent.host()), u"bakery"_s, u"bread"_s).click(u"Collegati"_s);
        EXPECT_TRUE(QTest::qWaitFor([&] { return silent.count("RETR") > 0; }) && has_copy());
        for (const QFileInfo& file : QDir(roots_.websites()).entryInfoList(QDir::Files | QDir::Hidden))
            EXPECT_FALSE(file.permissions() & (QFileDevice::ReadGroup | QFileDevice::ReadOther))
                << qPrintable(file.fileName());
        do_and_wait(form, u"cmdStop"_s);
        EXPECT_FALSE(has_copy());
    });
    EXPECT_EQ(silent.count("LIST"), 0);
}

TEST_F(HostedDialog, DataAreKeptWithoutTheSubDomainsPasswordAndForgotten) {
    const QString file = hosted_settings_path(roots_);
    in_dialog([&](const FormHand& form) {
        prompts_.expect_message(u"Insert all required data"_s);
        form.click(u"chkSalvaDati"_s).click(u"chkSalvaDati"_s);
        form.type(u"user_id"_s, u"ann"_s).type(u"txtDomain"_s, u"bakery"_s).click(u"chkSalvaDati"_s);
    });
    EXPECT_EQ(read_file(file).value_or(""),
              "\"nomehost " + server_.host().toUtf8() + "\r\nuserid ann\r\nsito bakery\r\n\"\r\n");
    EXPECT_FALSE(QFileInfo(file).permissions() & (QFileDevice::ReadGroup | QFileDevice::ReadOther));
    in_dialog([&](const FormHand& form) {
        EXPECT_EQ(form.widget<QLineEdit>(u"txtDomain"_s).text(), u"bakery");
        log_in(form, u"bakery"_s, u"bread"_s);
        EXPECT_THAT(QString::fromUtf8(read_file(file).value_or("")), Holds(u"userid anonymous\r\npassword secret"_s));
        do_and_wait(form, u"Collegati"_s);
        prompts_.expect_message(u"Are you sure you want to definitely delete the FTP data?"_s, Answer::kYes);
        form.click(u"chkDeleteData"_s);
        EXPECT_FALSE(QFile::exists(file));
    });
}

TEST_F(HostedDialog, NoFileOfTheWebsiteReplacesTheAccountFile) {
    put(shop(u"Domain.txt"_s), "my words about domains");
    in_dialog([&](const FormHand& form) {
        log_in(form, u"bakery"_s, u"bread"_s);
        prompts_.expect_message(u"files of its own:\n\nDomain.txt"_s);
        form.click(u"cmdSel"_s);
        prompts_.expect_file(shop(u"Domain.txt"_s)).expect_message(u"Domain.txt"_s);
        form.click(u"cmdFile"_s);
        prompts_.expect_file(shop(u"index.htm"_s));
        do_and_wait(form, u"cmdFile"_s);
    });
    EXPECT_EQ(server_.bytes(u"public_html/bakery/domain.txt"_s), "password=bread\r\n");
}

TEST_F(HostedDialog, MissingServiceSettingsAreTold) {
    ASSERT_TRUE(QFile::remove(settings_of_service()));
    run_told(u"mnu_pubblica_dominio"_s, u"The settings of the hosting service cannot be read."_s);
}

}  // namespace pondera
