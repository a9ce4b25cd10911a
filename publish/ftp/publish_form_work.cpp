// What the publishing dialogs do on a server that they are connected to.

#include <QtWidgets>

#include "base/files.h"
#include "base/roots.h"
#include "publish/ftp/frm_rifiutati.h"
#include "publish/ftp/host_memory.h"
#include "publish/ftp/in_background.h"
#include "publish/ftp/plain_words.h"
#include "publish/ftp/publish_form.h"
#include "publish/ftp/publish_options.h"
#include "publish/ftp/remote_site.h"
#include "publish/ftp/remote_view.h"
#include "publish/ftp/transfer_view.h"
#include "site/page_name.h"
#include "site/published_files.h"
#include "workbench/prompts.h"
#include "workbench/workbench.h"

using namespace Qt::StringLiterals;

namespace pondera {
namespace {

QString counted(qsizetype count, const QString& one, const QString& many) {
    return count == 1 ? u"1 "_s + one : u"%L1 %2"_s.arg(count).arg(many);
}

QStringList files_below(const QString& folder, QDirIterator::IteratorFlag how) {
    QStringList files;
    for (QDirIterator entries(folder, QDir::Files | QDir::Hidden, how); entries.hasNext();)
        files << QDir(folder).relativeFilePath(entries.next());
    files.sort();
    return files;
}

}  // namespace

/// Does long work of the core, which hears of Stop; false when that came before the end.
FileResult<bool> PublishForm::work_out(const std::function<FileResult<bool>(const Steps&)>& work) {
    const Steps steps = [this](int done, int total) {
        steps_done_ = done;
        steps_ = total;
        return !stop_;
    };
    FileResult<bool> result = in_background([&] { return work(steps); });
    steps_ = 0;
    if (result && stop_) return false;
    return result;
}

void PublishForm::publish(const QString& only) {
    if (!may_start()) return;
    if (const QString refusal = refusal_to_send(only); !refusal.isEmpty()) return workbench_.prompts().tell(refusal);
    FtpPublication::Order order{.website = workbench_.website(),
                                .destination = Destination::on_server(session_.host, session_.user, remote_folder_),
                                .remote_folder = remote_folder_,
                                .mode = options_->mode(),
                                .remove_deleted = options_->remove_deleted(),
                                .present = present_,
                                .listing = std::exchange(listing_, std::nullopt),
                                .verified = verified_folders(),
                                .only = only};
    auto publication = FtpPublication::begin(workbench_.roots(), std::move(order));
    if (!publication) return hint(fault_sentence(publication.error()), Tone::kBad);
    publication_ = std::move(*publication);
    if (!options_->address().isEmpty()) {
        HostMemory(workbench_.settings(), session_.host).set_address(remote_folder_, options_->address());
        options_->set_address(options_->address());
    }

    start_work(u"Verify Files to send.."_s);
    const FileResult<bool> surveyed = work_out([this](const Steps& steps) { return publication_->survey(steps); });
    if (!surveyed) return finish_work(fault_sentence(surveyed.error()), Tone::kBad);
    if (!*surveyed) return finish_work(u"Stopped. Nothing was sent."_s, Tone::kPlain);
    transfer_->show_steps(0, 0);
    verify();
}

void PublishForm::verify() {
    const auto task = publication_->verify_task();
    task ? run(task, [this] { list(); }) : list();
}

void PublishForm::list() {
    const auto task = publication_->list_task();
    task ? run(task, [this] { ricevo_cartella(); }) : ricevo_cartella();
}

/// Fetches what the server's media folders hold and the Website does not.
void PublishForm::ricevo_cartella() {
    if (!publication_) return;
    fetching_ = publication_->fetch_task();
    if (!fetching_) return invio_cartella();
    stage_ = u"Fetching from the server.."_s;
    run(fetching_, [this] { invio_cartella(); });
}

/// Stages what is to be sent and sends it.
void PublishForm::invio_cartella() {
    if (!publication_) return;
    transfer_->show_stage(stage_ = u"Preparing the files.."_s);
    const FileResult<bool> prepared = work_out([this](const Steps& steps) { return publication_->prepare(steps); });
    if (!prepared) return finish_work(fault_sentence(prepared.error()), Tone::kBad);
    if (!*prepared) return finish_work(u"Stopped. Nothing was sent."_s, Tone::kPlain);
    sending_ = publication_->send_task();
    if (!sending_) return sent();
    if (publication_->is_of_all())
        HostMemory(workbench_.settings(), session_.host).set_incomplete(workbench_.website(), true);
    if (!present_) hint(u"Where the server answers 550, a folder is not there yet. It is made now."_s);
    stage_ = u"Sending.."_s;
    time_left_ = {};
    sending_for_.start();
    // What was sent stays sent, whether it can be listed or not.
    run(sending_, [this] { show_site([this] { sent(); }, [this](const TaskEnd&) { sent(); }); });
}

/// The publication has come to its end.
void PublishForm::sent() {
    Aggiorna_Contatore();
    const QList<RefusedFile> refused = sending_ ? sending_->refused() + sending_->not_removed() : QList<RefusedFile>();
    const QString stopped_by = sending_ ? sending_->stopped_by() : QString();
    const QString text = summary();
    const bool whole = refused.isEmpty() && stopped_by.isEmpty();
    if (sending_) present_ = present_ || refused.size() < sending_->progress().files_done;
    if (whole && publication_->is_of_all())
        HostMemory(workbench_.settings(), session_.host).set_incomplete(workbench_.website(), false);
    remote_->show_names(remote_folder_, shown_names(site_));
    if (whole) transfer_->show_steps(1, 1);
    finish_work(text, whole ? Tone::kGood : Tone::kBad);
    if (const QString address = browsable_address(options_->address()); whole && !address.isEmpty())
        link_->setText(u"Click here to go to the Website: <a href=\"%1\">%1</a>"_s.arg(address.toHtmlEscaped()));
    if (refused.isEmpty() || !closed_by_.isEmpty()) return;
    const QString others = stopped_by.isEmpty() ? u" All others are in order."_s : QString();
    Frm_Rifiutati form(u"The server did not do what was asked for with these files."_s + others, refused, this);
    workbench_.prompts().run(form);
}

QString PublishForm::summary() const {
    QStringList parts;
    if (fetching_ && !fetching_->fetched().isEmpty())
        parts << counted(fetching_->fetched().size(), u"file fetched from the server"_s,
                         u"files fetched from the server"_s);
    if (fetching_ && !fetching_->refused().isEmpty())
        parts << counted(fetching_->refused().size(), u"file could not be fetched"_s, u"files could not be fetched"_s) +
                     u" (%1)"_s.arg(brief(fetching_->refused().constLast().reply));
    if (sending_) {
        const qsizetype files = sending_->progress().files_done - sending_->refused().size();
        const qsizetype removed = publication_->removals() - sending_->not_removed().size();
        if (files > 0) parts << counted(files, u"file sent"_s, u"files sent"_s);
        if (removed > 0 && sending_->stopped_by().isEmpty())
            parts << counted(removed, u"file removed"_s, u"files removed"_s);
        if (!sending_->refused().isEmpty())
            parts << counted(sending_->refused().size(), u"file refused by the server"_s,
                             u"files refused by the server"_s);
        if (!sending_->stopped_by().isEmpty())
            return (parts.join(u", "_s) + u'\n' + brief(sending_->stopped_by())).trimmed();
    }
    const QString done = sending_ ? u"Published."_s : u"Everything is up to date."_s;
    return parts.isEmpty() ? done : done + u'\n' + parts.join(u", "_s) + u'.';
}

/// Completes the record and clears what was staged, whatever became of the publication.
void PublishForm::close_publication() {
    if (!publication_) return;
    const std::unique_ptr<FtpPublication> publication = std::move(publication_);
    const QString staging = publication->staging_folder();
    const FileResult<void> closed = in_background([&] { return publication->close(); });
    if (!closed) workbench_.prompts().tell(fault_sentence(closed.error()), MessageIcon::kCritical);
    const QStringList left = fCaricaPath(staging);
    if (!left.isEmpty()) cancella_file(QDir(staging).filePath(left.constFirst()));
}

/// Shows how far the work is.
void PublishForm::Aggiorna_Contatore() {
    if (const int steps = steps_; steps > 0) {
        transfer_->show_steps(steps_done_, steps);
    } else if (sending_) {
        const SendProgress progress = sending_->progress();
        time_left_.note(std::chrono::milliseconds(sending_for_.elapsed()), progress);
        const bool bytes = progress.bytes > 0;
        transfer_->show_steps(bytes ? progress.bytes_done : progress.files_done,
                              bytes ? progress.bytes : progress.files);
        if (progress.files > 0) transfer_->show_count(progress_text(progress), time_left_.text());
    } else if (fetching_) {
        const qsizetype done = fetching_->fetched().size() + fetching_->refused().size();
        transfer_->show_steps(done, fetching_->count());
        transfer_->show_count(u"%L1 of %L2 files"_s.arg(done).arg(fetching_->count()), {});
    } else if (emptying_) {
        transfer_->show_count(counted(emptying_->deleted(), u"file deleted"_s, u"files deleted"_s), {});
    }
}

void PublishForm::show_site(const std::function<void()>& then, std::function<void(const TaskEnd&)> failed) {
    run(
        std::make_shared<ListTask>(remote_folder_, QStringList{QString()}),
        [this, then] {
            const bool there = Inet1_->RemoteFolder() == remote_folder_;
            present_ = present_ || there;
            // A listing that was refused leaves the one before, which may be of another folder.
            listing_.reset();
            site_ = {};
            if (there && Inet1_->ResponseCode() == kFine) listing_ = site_ = Inet1_->Listing();
            then();
        },
        std::move(failed));
}

void PublishForm::refresh() {
    if (!may_start()) return;
    start_work(u"Waiting for the list.."_s);
    show_site([this] {
        if (listing_) return finish_work({}, Tone::kPlain);
        if (!present_) return finish_without_folder();
        remote_->show_names(remote_folder_, {});
        finish_work(u"The server does not show this folder: %1"_s.arg(brief(Inet1_->ResponseInfo())), Tone::kBad);
    });
}

/// Sends a single file of the Website.
void PublishForm::Apri_File_Dialogo() {
    if (!may_start()) return;
    const auto chosen =
        workbench_.prompts().choose_file({u"Select the file to send"_s, workbench_.roots().websites(), {u"*.*"_s}});
    if (!chosen || !may_start()) return;
    const QString path = published_name(QDir(QFileInfo(workbench_.website_folder()).canonicalFilePath())
                                            .relativeFilePath(QFileInfo(*chosen).canonicalFilePath()));
    const auto published = published_files(workbench_.website_folder());
    if (published && published->contains(path)) return publish(path);
    workbench_.prompts().tell(
        u"Select a file of the Website \"%1\": a page, a document, or a file of its media folders."_s.arg(
            workbench_.website()));
}

void PublishForm::empty_server() {
    if (!may_start()) return;
    const QList<Answer> answers{Answer::kNo, Answer::kYes, Answer::kCancel};
    if (!workbench_.prompts().really(u"Do you want to delete all files contained in the remote server?"_s, answers))
        return;
    if (!may_start()) return;
    Inet1_->Cancel();
    auto record = PublicationRecord::open(workbench_.website_folder(),
                                          Destination::on_server(session_.host, session_.user, remote_folder_));
    if (!record) return hint(fault_sentence(record.error()), Tone::kBad);
    if (!present_) return hint(u"There is nothing of this Website on the server."_s);
    listing_.reset();
    start_work(u"Deleting.."_s);
    const auto kept_record = std::make_shared<PublicationRecord>(std::move(*record));
    emptying_ = std::make_shared<EmptyTask>(remote_folder_, kept_record.get(), spared());
    const auto close = [this, kept_record] {
        if (const FileResult<void> closed = kept_record->close(); !closed)
            workbench_.prompts().tell(fault_sentence(closed.error()), MessageIcon::kCritical);
    };
    const auto emptied = [this, close] {
        close();
        const std::shared_ptr<EmptyTask> task = emptying_;
        const QString deleted = counted(task->deleted(), u"file deleted."_s, u"files deleted."_s);
        const bool whole = task->kept().isEmpty() && task->stopped_by().isEmpty();
        finish_work(whole ? u"The folder of the Website on the server is empty now: "_s + deleted
                          : deleted + u" Some could not be deleted. "_s + task->stopped_by(),
                    whole ? Tone::kGood : Tone::kBad);
        if (task->kept().isEmpty() || !closed_by_.isEmpty()) return;
        Frm_Rifiutati form(u"The server did not delete these files and folders."_s, task->kept(), this);
        workbench_.prompts().run(form);
    };
    run(
        emptying_, [this, emptied] { show_site(emptied, [emptied](const TaskEnd&) { emptied(); }); },
        [this, close](const TaskEnd& end) {
            close();
            failed(end);
        });
}

/// The files of a folder and those below it, as paths relative to it.
QStringList PublishForm::fCaricaPath(const QString& folder) const {
    return files_below(folder, QDirIterator::Subdirectories);
}

/// The files of a folder alone.
QStringList PublishForm::fCaricaSoloCartella(const QString& folder) const {
    return files_below(folder, QDirIterator::NoIteratorFlags);
}

/// Deletes a temporary file of the transfer.
bool PublishForm::cancella_file(const QString& path) {
    if (remove_file(path)) return true;
    workbench_.prompts().tell(u"Error in deletion of temporary file!"_s);
    return false;
}

/// Counts the files of a folder and of those below it.
int PublishForm::N_File_Cartella(const QString& folder) const {
    return static_cast<int>(fCaricaPath(folder).size());
}

void PublishForm::open_website() {
    if (const QString address = browsable_address(options_->address()); !address.isEmpty())
        QDesktopServices::openUrl(QUrl(address));
}

}  // namespace pondera
