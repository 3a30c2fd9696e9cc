#include "ui/config_decklink_dialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <cstring>

namespace orv {

namespace {

constexpr int RECORD_BYTES = sizeof(UstBoardRecord);
constexpr int MIN_WIDTH = 380;

QComboBox* Box(QWidget* parent, const char* id) {
    auto* box = new QComboBox(parent);
    box->setObjectName(id);
    return box;
}

}  // namespace

CDlgConfigDecklink::CDlgConfigDecklink(IF_HDExtreme& board, QWidget* parent)
    : QDialog(parent), m_board(board), m_Saved(board.Record()) {
    setWindowTitle(tr("Hardware Configuration"));
    setMinimumWidth(MIN_WIDTH);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(BuildBoxes());
    layout->addWidget(BuildKeying());
    layout->addWidget(BuildOutput());
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
    OnInitDialog();
    connect(m_pVideo, &QComboBox::currentIndexChanged, this, &CDlgConfigDecklink::OnVideoChanged);
}

QWidget* CDlgConfigDecklink::BuildBoxes() {
    auto* holder = new QWidget(this);
    auto* layout = new QVBoxLayout(holder);
    layout->setContentsMargins(0, 0, 0, 0);
    const struct {
        const char* title;
        const char* id;
        QComboBox** box;
    } boxes[] = {{QT_TR_NOOP("Device"), "1130", &m_pDevice},
                 {QT_TR_NOOP("Video Format"), "1131", &m_pVideo},
                 {QT_TR_NOOP("Audio Format"), "1132", &m_pAudio}};
    for (const auto& b : boxes) {
        auto* group = new QGroupBox(tr(b.title), holder);
        auto* inner = new QVBoxLayout(group);
        *b.box = Box(group, b.id);
        inner->addWidget(*b.box);
        layout->addWidget(group);
    }
    return holder;
}

QWidget* CDlgConfigDecklink::BuildKeying() {
    auto* group = new QGroupBox(tr("Keying"), this);
    auto* row = new QHBoxLayout(group);
    m_pInternal = new QRadioButton(tr("Internal"), group);
    m_pInternal->setObjectName("1133");
    m_pExternal = new QRadioButton(tr("External"), group);
    m_pExternal->setObjectName("1134");
    row->addWidget(m_pInternal);
    row->addWidget(m_pExternal);
    row->addStretch();
    connect(m_pInternal, &QRadioButton::clicked, this, [this] { OnKeyMode(0); });
    connect(m_pExternal, &QRadioButton::clicked, this, [this] { OnKeyMode(1); });
    return group;
}

QWidget* CDlgConfigDecklink::BuildOutput() {
    auto* group = new QGroupBox(tr("Output"), this);
    auto* layout = new QVBoxLayout(group);
    m_pOutput = Box(group, "output");
    m_pOutput->addItem(tr("Card"), static_cast<int>(EOutputKind::CARD));
    m_pOutput->addItem(tr("Clock only, no picture"), static_cast<int>(EOutputKind::CLOCK));
    m_pOutput->addItem(tr("Program monitor"), static_cast<int>(EOutputKind::MONITOR));
    m_pOutput->addItem(tr("File (lossless, fill and key)"), static_cast<int>(EOutputKind::FILE));
    m_pOutput->addItem(tr("SRT stream (fill over black)"), static_cast<int>(EOutputKind::SRT));
    layout->addWidget(m_pOutput);
    auto* row = new QHBoxLayout;
    m_pTarget = new QLineEdit(group);
    m_pTarget->setObjectName("target");
    auto* browse = new QPushButton(tr("..."), group);
    m_pBrowse = browse;
    connect(browse, &QPushButton::clicked, this, &CDlgConfigDecklink::ChooseFile);
    row->addWidget(m_pTarget);
    row->addWidget(browse);
    layout->addLayout(row);
    const UstOutputChoice now = m_board.Output();
    m_pOutput->setCurrentIndex(std::max(0, m_pOutput->findData(static_cast<int>(now.kind))));
    m_pTarget->setText(QString::fromStdString(now.target));
    connect(m_pOutput, &QComboBox::currentIndexChanged, this,
            &CDlgConfigDecklink::ShowOutputTarget);
    ShowOutputTarget();
    return group;
}

// Rows whose text is empty are left out of the box, and the selection is
// used as an index into the list as it stands.
void CDlgConfigDecklink::OnInitDialog() {
    const CDecklinkPipeline& pipe = *m_board.GetPipeline();
    const QString device = RecordDeviceName(m_board.Record());
    for (const QString& name : pipe.m_Devices)
        m_pDevice->addItem(name);
    m_pDevice->setCurrentIndex(static_cast<int>(pipe.m_Devices.size()) > 0
                                   ? std::max(0, m_pDevice->findText(device))
                                   : -1);
    for (const CfgVideo& mode : pipe.m_VideoModes)
        if (const QString text = VideoRowText(mode); !text.isEmpty()) m_pVideo->addItem(text);
    for (const CfgAudio& mode : pipe.m_AudioModes)
        m_pAudio->addItem(AudioRowText(mode));
    m_pVideo->setCurrentIndex(FindVideoMode(pipe.m_VideoModes, m_board.Record()));
    m_pAudio->setCurrentIndex(FindAudioMode(pipe.m_AudioModes, m_board.Record()));
    (m_board.Record().nKeyMode != 0 ? m_pExternal : m_pInternal)->setChecked(true);
    std::memcpy(&m_Saved, &m_board.Record(), RECORD_BYTES);
}

void CDlgConfigDecklink::OnVideoChanged(int index) {
    const std::vector<CfgVideo>& modes = m_board.GetPipeline()->m_VideoModes;
    if (index < 0 || index >= static_cast<int>(modes.size())) return;
    ApplyVideoMode(m_board.Record(), modes[static_cast<size_t>(index)]);
    m_board.GetPipeline()->Rebuild();
    m_bGraphChanged = 1;
    m_bChanged = 1;
}

void CDlgConfigDecklink::OnKeyMode(int mode) {
    m_board.Record().nKeyMode = mode;
    m_bChanged = 1;
}

void CDlgConfigDecklink::ShowOutputTarget() {
    const auto kind = static_cast<EOutputKind>(m_pOutput->currentData().toInt());
    m_pTarget->setEnabled(kind == EOutputKind::FILE || kind == EOutputKind::SRT);
    m_pBrowse->setEnabled(kind == EOutputKind::FILE);
    m_pTarget->setPlaceholderText(kind == EOutputKind::SRT    ? "srt://host:port"
                                  : kind == EOutputKind::FILE ? tr("output.mkv")
                                                              : QString());
}

void CDlgConfigDecklink::ChooseFile() {
    const QString name = QFileDialog::getSaveFileName(this, tr("Output File"), m_pTarget->text(),
                                                      tr("Matroska Files (*.mkv)"));
    if (!name.isEmpty()) m_pTarget->setText(name);
}

UstOutputChoice CDlgConfigDecklink::OutputChoice() const {
    UstOutputChoice choice;
    choice.kind = static_cast<EOutputKind>(m_pOutput->currentData().toInt());
    const std::string text = m_pTarget->text().trimmed().toStdString();
    if (choice.kind == EOutputKind::FILE) choice.target = text;
    if (choice.kind == EOutputKind::SRT && !text.empty())
        choice.target = text.starts_with("srt://") ? text : "srt://" + text;
    return choice;
}

// OK keeps the record as it is; a new output, when it names something, takes
// over at once.
void CDlgConfigDecklink::accept() {
    const UstOutputChoice choice = OutputChoice();
    const bool named = !(choice.kind == EOutputKind::FILE || choice.kind == EOutputKind::SRT) ||
                       !choice.target.empty();
    if (named && !(choice == m_board.Output())) m_board.SetOutput(choice);
    QDialog::accept();
}

// A new video mode is undone, with one more rebuild; a key mode changed on
// its own is not.
void CDlgConfigDecklink::reject() {
    if (m_bGraphChanged) {
        std::memcpy(&m_board.Record(), &m_Saved, RECORD_BYTES);
        m_board.GetPipeline()->Rebuild();
    }
    QDialog::reject();
}

}  // namespace orv
