#pragma once

#include <QDialog>
#include <QElapsedTimer>
#include <QTimer>

#include <atomic>
#include <functional>
#include <memory>

#include "publish/commands/command_executor.h"
#include "publish/ftp/connect_task.h"
#include "publish/ftp/connection_view.h"
#include "publish/ftp/empty_task.h"
#include "publish/ftp/ftp_publication.h"
#include "publish/sending/time_left.h"
#include "publish/transfer/curl_transfer.h"

class QLabel;
class QPushButton;

namespace pondera {

class LoginGroup;
class PublishOptions;
class RemoteView;
class TransferView;
class Workbench;

/// How a dialog logs in to a server.
struct ServerLogin {
    QString host;  ///< as typed
    QString user;
    QString password;
    ProtectionWish protection = ProtectionWish::kWhenOffered;
    QStringList way;  ///< to the Website's folder, as `way_to_site` gives it
};

/// The machinery of a dialog that publishes the open Website to a server: connecting, publishing, emptying, with what
/// it shows of them. The dialog itself brings the fields of its login, and says what differs.
class PublishForm : public QDialog {
    Q_OBJECT

  public:
    ~PublishForm() override;

    void connetti();
    void ricevo_cartella();
    void invio_cartella();
    void riempi_lista();
    void Aggiorna_Contatore();
    void Apri_File_Dialogo();
    [[nodiscard]] QStringList fCaricaPath(const QString& folder) const;
    [[nodiscard]] QStringList fCaricaSoloCartella(const QString& folder) const;
    bool cancella_file(const QString& path);
    [[nodiscard]] int N_File_Cartella(const QString& folder) const;

    /// How the dialog was closed: "CANCEL" or "CLOSE"; empty while it is open.
    [[nodiscard]] const QString& closed_by() const { return closed_by_; }

    void reject() override;

  protected:
    using Tone = ConnectionView::Tone;

    /// `name` is the dialog's, `highest_index` that of its command stack.
    PublishForm(Workbench& workbench, const QString& name, int highest_index);

    /// Lays the dialog out around the fields of its login.
    void build(LoginGroup* fields);
    /// What the fields of the login are made with.
    [[nodiscard]] QPushButton* connect_button() const { return connect_; }

    /// The login as typed; nothing when something is missing, which the person was told then.
    [[nodiscard]] virtual std::optional<ServerLogin> login() = 0;
    /// What connects: it goes to the Website's folder. Called once the session is set up.
    [[nodiscard]] virtual std::shared_ptr<ConnectTask> connect_task();
    /// That task was stopped, or the line broke.
    virtual void not_connected() {}
    /// That task has ended: the Website's folder on the server is known.
    virtual void connected();
    /// Leaves the server.
    void close_line();
    /// The names of a listing of the server that are shown.
    [[nodiscard]] virtual QStringList shown_names(const RemoteListing& listing) const;
    /// The message why the Website, or its file `only`, cannot be sent; empty when it can.
    [[nodiscard]] virtual QString refusal_to_send(const QString& /*only*/) const { return {}; }
    /// The folders in "media" that are verified before a transfer.
    [[nodiscard]] virtual QStringList verified_folders() const;
    /// What an emptying leaves alone.
    [[nodiscard]] virtual EmptyTask::Spared spared() const { return {}; }
    /// The web address of the Website, for the person to correct.
    [[nodiscard]] virtual QString suggested_address() const;

    /// Runs a task as part of the work; its end calls `then`, a break or Stop calls `failed` or, without one, ends the
    /// work with what there is to say.
    void run(std::shared_ptr<RemoteTask> task, std::function<void()> then,
             std::function<void(const TaskEnd&)> failed = {});
    void start_work(const QString& stage);
    void finish_work(const QString& hint, Tone tone);
    /// Tells the fixed sentence and gives false unless a command of the person may start.
    bool may_start();
    void hint(const QString& text, Tone tone = Tone::kPlain);
    /// The server's words when it refused the last command, else those of the Internet library for such a refusal.
    [[nodiscard]] QString server_words() const;
    /// Points out that the last publication to a host, or to any (empty), did not finish.
    void point_out_unfinished(const QString& host);

    [[nodiscard]] Workbench& workbench() const { return workbench_; }
    [[nodiscard]] InternetTransfer& inet() const { return *Inet1_; }
    [[nodiscard]] const ServerLogin& session() const { return session_; }
    [[nodiscard]] const QString& remote_folder() const { return remote_folder_; }

  private:
    // connecting
    void open_line();
    void try_connecting();
    void connection_failed(const TaskEnd& end);
    void finish_without_folder();
    [[nodiscard]] bool trusts_server();
    [[nodiscard]] bool accepts_open_line();
    [[nodiscard]] bool is_connected() const { return executor_ && executor_->ready(); }
    // publishing
    void publish(const QString& only);
    void verify();
    void list();
    void sent();
    void close_publication();
    void refresh();
    void show_site(const std::function<void()>& then, std::function<void(const TaskEnd&)> failed = {});
    void empty_server();
    [[nodiscard]] QString summary() const;
    [[nodiscard]] FileResult<bool> work_out(const std::function<FileResult<bool>(const Steps&)>& work);
    // the dialog
    void failed(const TaskEnd& end);
    void stop();
    void leave(const QString& result);
    void close_now();
    void show_situation();
    void show_soon();
    void show_live();
    void open_website();

    Workbench& workbench_;
    int highest_index_;
    QPushButton* connect_;
    LoginGroup* login_fields_ = nullptr;
    ConnectionView* connection_;
    PublishOptions* options_;
    RemoteView* remote_;
    TransferView* transfer_;
    QLabel* link_;

    std::unique_ptr<CurlTransfer> Inet1_;
    std::unique_ptr<CommandExecutor> executor_;
    QTimer Timer1_;  ///< hands over a command that waits although nothing runs
    QTimer Timer2_;  ///< shows how far the work is
    ServerLogin session_;
    bool expects_protection_ = false;  ///< the line was protected the last time, and is wished to be so again
    QString remote_folder_;
    bool present_ = false;                  ///< the remote folder is there
    std::optional<RemoteListing> listing_;  ///< what it holds, as long as nothing was done since it was listed
    RemoteListing site_;                    ///< what it held when it was listed last

    bool working_ = false;
    std::atomic<bool> stop_ = false;
    std::atomic<int> steps_done_ = 0;  ///< of the work in the background
    std::atomic<int> steps_ = 0;       ///< 0 while there is none
    QString stage_;
    QString command_;  ///< the one at work
    int pending_ = 0;
    QElapsedTimer shown_;  ///< since the state and the command were shown
    QString closing_;      ///< the result with which the dialog closes when the work has ended
    QString closed_by_;
    std::function<void()> then_;
    std::function<void(const TaskEnd&)> failed_;
    std::shared_ptr<ConnectTask> connecting_;
    std::unique_ptr<FtpPublication> publication_;
    std::shared_ptr<FetchTask> fetching_;
    std::shared_ptr<SendTask> sending_;
    std::shared_ptr<EmptyTask> emptying_;
    QElapsedTimer sending_for_;
    TimeLeft time_left_;
};

}  // namespace pondera
