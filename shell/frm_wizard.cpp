#include "shell/frm_wizard.h"

#include <QtWidgets>

#include "shell/frm_settings.h"
#include "workbench/workbench.h"

namespace pondera {

using namespace Qt::StringLiterals;

namespace {

struct Step {
    QLatin1StringView name;
    QLatin1StringView title;
    QLatin1StringView text;
    QLatin1StringView caption;
    QLatin1StringView command;
    bool comes_back;  ///< the wizard is shown again after the command
};

constexpr std::array kSteps{
    Step{"create"_L1, "1. Create"_L1,
         "Choose a model and give your Website a name. Its home page opens at once, ready to be changed."_L1,
         "&New Website..."_L1, "Crea_Website"_L1, true},
    Step{"fill"_L1, "2. Fill"_L1,
         "Click into the page and write as in a letter. Insert pictures and drag them to where they should be."_L1,
         "&Insert Image..."_L1, "mnu_ins_marchio"_L1, false},
    Step{"publish"_L1, "3. Publish"_L1,
         "Send the finished pages to your server with one command. From then on everybody can visit your Website."_L1,
         "&Publish..."_L1, "mnu_pubblica"_L1, false},
};

constexpr QSize kPictureSize{240, 180};

QLabel* label(const QString& name, const QString& text) {
    auto* widget = new QLabel(text);
    widget->setObjectName(name);
    widget->setWordWrap(true);
    return widget;
}

}  // namespace

frmWizard::frmWizard(Workbench& workbench, QWidget* window) : QDialog(window), workbench_(workbench) {
    setObjectName("frmWizard"_L1);
    setWindowTitle(u"Wizard - 3 Steps for Pondera"_s);
    setAttribute(Qt::WA_DeleteOnClose);

    auto* steps = new QHBoxLayout;
    steps->setSpacing(14);
    for (int number = 0; number < static_cast<int>(kSteps.size()); ++number) steps->addWidget(make_step(number));

    auto* at_start = new QCheckBox(u"&Show this at start"_s);
    at_start->setObjectName("chkWizard"_L1);
    at_start->setChecked(wizard_at_start(workbench.settings()));
    connect(at_start, &QCheckBox::toggled, this, [this](bool on) { set_wizard_at_start(workbench_.settings(), on); });

    auto* help = new QPushButton(u"&Help"_s);
    help->setObjectName("cmdHelp"_L1);
    help->setAutoDefault(false);
    connect(help, &QPushButton::clicked, this, [this] {
        workbench_.show_help({u"/_HELP/_4_3steps.htm"_s, u"Help - 3 Steps for Pondera"_s});
    });
    auto* done = new QPushButton(u"&Close"_s);
    done->setObjectName("CancelButton"_L1);
    done->setAutoDefault(false);
    connect(done, &QPushButton::clicked, this, &QDialog::close);

    auto* bottom = new QHBoxLayout;
    bottom->addWidget(at_start);
    bottom->addStretch();
    bottom->addWidget(help);
    bottom->addWidget(done);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 20, 20, 16);
    layout->setSpacing(16);
    layout->addLayout(steps);
    layout->addLayout(bottom);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

QWidget* frmWizard::make_step(int number) {
    const Step& step = kSteps.at(static_cast<size_t>(number));
    auto* card = new QFrame;
    card->setObjectName("step_"_L1 + step.name);
    card->setProperty("card", true);
    card->setFixedWidth(kPictureSize.width() + 32);

    auto* picture = new QLabel;
    picture->setFixedSize(kPictureSize);
    picture->setAlignment(Qt::AlignCenter);
    picture->setPixmap(QIcon(u":/pictures/wizard-%1.svg"_s.arg(step.name)).pixmap(kPictureSize, devicePixelRatioF()));

    auto* title = label(u"step_title"_s, step.title);
    auto* button = new QPushButton(step.caption);
    button->setObjectName("cmd_"_L1 + step.name);
    auto* note = label("note_"_L1 + step.name, {});
    note->setProperty("note", true);
    note->setMinimumHeight(note->fontMetrics().height() * 2);
    note->setAlignment(Qt::AlignTop);

    QAction* command = parentWidget() == nullptr ? nullptr : parentWidget()->findChild<QAction*>(step.command);
    const auto refresh = [button, note, command] {
        button->setEnabled(command != nullptr && command->isEnabled());
        note->setText(button->isEnabled()  ? QString()
                      : command == nullptr ? u"This step comes with a later version."_s
                                           : u"Create or open a Website first."_s);
    };
    refresh();
    if (command != nullptr) {
        connect(command, &QAction::changed, button, refresh);
        connect(button, &QPushButton::clicked, this, [this, command, &step] { run(*command, step.comes_back); });
    }

    auto* layout = new QVBoxLayout(card);
    layout->setContentsMargins(16, 16, 16, 12);
    layout->setSpacing(10);
    layout->addWidget(picture);
    layout->addWidget(title);
    layout->addWidget(label(u"step_text"_s, step.text), 1, Qt::AlignTop);
    layout->addWidget(button);
    layout->addWidget(note);
    return card;
}

void frmWizard::run(QAction& command, bool comes_back) {
    hide();
    command.trigger();
    if (comes_back) {
        show();
    } else {
        close();
    }
}

void show_wizard(Workbench& workbench) {
    QWidget* window = workbench.window();
    auto* open = window == nullptr ? nullptr : window->findChild<frmWizard*>();
    auto* wizard = open != nullptr ? open : new frmWizard(workbench, window);
    wizard->show();
    wizard->raise();
    wizard->activateWindow();
}

}  // namespace pondera
