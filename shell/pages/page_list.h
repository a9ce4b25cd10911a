#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QListView;
class QSortFilterProxyModel;
class QStandardItemModel;

namespace pondera {

/// Pages and documents of a Website to choose one from: a box (`txtFilter`) that keeps those whose entries hold what is
/// typed, above the `list`. Nothing is chosen at first; the only one that a filter leaves is chosen by itself. The form
/// around it takes the choice on its default button.
class PageList : public QWidget {
    Q_OBJECT

  public:
    explicit PageList(QWidget* parent = nullptr);

    /// Offers pages by their published file names, and documents; sorted as people count, the home page first, the
    /// documents last.
    void offer(QStringList pages, QStringList documents = {});

    /// The file name that is chosen; empty while there is none.
    [[nodiscard]] QString choice() const;

    /// Chooses a file that is offered; the filter is emptied for it. A file that is not offered changes nothing.
    void set_choice(const QString& file_name);

  signals:
    void doubleClicked();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void filter(const QString& words);
    void show_nothing_found();
    bool filter_key(int key);
    bool list_key(int key);
    void choose_row(int row);

    QStandardItemModel* files_;
    QSortFilterProxyModel* shown_;
    QLineEdit* filter_;
    QListView* list_;
    QLabel* nothing_;
};

}  // namespace pondera
