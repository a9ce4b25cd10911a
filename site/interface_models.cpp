#include "site/interface_models.h"

#include <QDir>
#include <QRegularExpression>

#include "base/roots.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

QStringList system_cards(const Roots& roots) {
    return QDir(roots.system_folder()).entryList({u"*_card.htm"_s}, QDir::Files | QDir::CaseSensitive);
}

}  // namespace

QStringList list_interface_models(const Roots& roots) {
    QStringList models;
    for (const QString& file : system_cards(roots)) {
        const qsizetype mark = file.indexOf(u"_§_"_s);
        if (mark > 0) models += file.first(mark);
    }
    models.removeDuplicates();
    models.sort(Qt::CaseInsensitive);
    return models;
}

QStringList list_own_interface_models(const Roots& roots) {
    QStringList models = list_interface_models(roots);
    models.removeIf(is_shipped_model);
    return models;
}

bool is_shipped_model(const QString& model) {
    return QStringList({u"Standard_Interface"_s, u"Store_Interface"_s}).contains(model, Qt::CaseInsensitive);
}

QString interface_model_display(const QString& model) {
    return u"Interfaccia "_s + model;
}

QList<int> interface_model_cards(const Roots& roots, const QString& model) {
    QList<int> cards;
    for (int card = 1; card <= 9; ++card)
        if (QFileInfo(interface_model_card(roots, model, card)).isFile()) cards += card;
    return cards;
}

QString card_file_name(int card) {
    return u"_§_%1_card.htm"_s.arg(card);
}

QString menu_template_name() {
    return u"_çmenu.htm"_s;
}

QString interface_model_card(const Roots& roots, const QString& model, int card) {
    return QDir(roots.system_folder()).filePath(model + card_file_name(card));
}

QString interface_model_menu(const Roots& roots, const QString& model) {
    return QDir(roots.system_folder()).filePath(model + u"_çMenu.htm"_s);
}

QString interface_model_preview(const Roots& roots, const QString& model, int card) {
    return QDir(roots.system_folder()).filePath(u"preview/%1_card%2.png"_s.arg(model, QString::number(card)));
}

}  // namespace pondera
