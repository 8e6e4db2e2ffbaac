#include "host/desktop/StartPage.h"

#include <QFrame>
#include <QHeaderView>
#include <QLabel>
#include <QShortcut>
#include <QTableWidget>
#include <QVBoxLayout>

#include <utility>

namespace host {

namespace {

const QStringList Columns = {"List #", "Kind", "Address", "Agent", "Status", "Photos"};
constexpr int NumberColumn = 0;
constexpr int AddressColumn = 2;

QLabel* MakeLabel(const char* name, qreal sizeFactor, bool bold) {
    auto* label = new QLabel;
    label->setObjectName(name);
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * sizeFactor);
    font.setBold(bold);
    label->setFont(font);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

/// All columns keep the width of their texts, the address takes the rest.
void SizeColumns(QHeaderView& header, QHeaderView::ResizeMode mode) {
    header.setSectionResizeMode(mode);
    header.setSectionResizeMode(AddressColumn, QHeaderView::Stretch);
}

QString Named(const std::string& id, const std::string& name) {
    const QString text = QString::fromStdString(id);
    return name.empty() ? text : text + " – " + QString::fromStdString(name);
}

}  // namespace

StartPage::StartPage(HostOptions user) : user_(std::move(user)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 8);
    layout->setSpacing(12);
    layout->addWidget(MakeHeader());
    lblListings_ = MakeLabel("lblListings", 1.1, true);
    listings_ = MakeTable();
    layout->addWidget(lblListings_);
    layout->addWidget(listings_, 1);
    const auto open = [this] {
        if (SelectedListing() > 0) opened(SelectedListing());
    };
    connect(listings_, &QTableWidget::doubleClicked, this, open);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto* pressed = new QShortcut(key, listings_);
        pressed->setContext(Qt::WidgetShortcut);
        connect(pressed, &QShortcut::activated, this, open);
    }
}

QWidget* StartPage::MakeHeader() {
    auto* card = new QFrame;
    card->setObjectName("fraUser");
    card->setFrameShape(QFrame::StyledPanel);
    card->setAutoFillBackground(true);
    card->setBackgroundRole(QPalette::Base);
    auto* layout = new QVBoxLayout(card);
    layout->setContentsMargins(16, 12, 16, 12);
    lblWelcome_ = MakeLabel("lblWelcome", 1.5, true);
    lblUser_ = MakeLabel("lblUser", 1.0, false);
    auto* lblData = MakeLabel("lblData", 1.0, false);
    lblData->setText("Data folder: " + QString::fromStdString(user_.dataFolder));
    lblData->setWordWrap(true);
    for (QLabel* label : {lblWelcome_, lblUser_, lblData}) layout->addWidget(label);
    return card;
}

QTableWidget* StartPage::MakeTable() {
    auto* table = new QTableWidget(0, static_cast<int>(Columns.size()));
    table->setObjectName("Listings");
    table->setAccessibleName("Listings");
    table->setHorizontalHeaderLabels(Columns);
    table->verticalHeader()->hide();
    table->setShowGrid(false);
    table->setAlternatingRowColors(true);
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setTabKeyNavigation(false);
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table->horizontalHeader()->setMinimumSectionSize(table->fontMetrics().horizontalAdvance("00000000000"));
    SizeColumns(*table->horizontalHeader(), QHeaderView::ResizeToContents);
    return table;
}

std::int32_t StartPage::SelectedListing() const {
    const auto selected = listings_->selectionModel()->selectedRows(NumberColumn);
    return selected.isEmpty() ? 0 : selected.front().data().toInt();
}

void StartPage::ShowOverview(const Overview& overview) {
    lblWelcome_->setText(
        "Welcome, " + QString::fromStdString(overview.agentName.empty() ? user_.agent : overview.agentName));
    lblUser_->setText(QString("Agent %1   ·   Office %2   ·   Board %3   ·   Level %4 (%5)")
                          .arg(Named(user_.agent, overview.agentName),
                               Named(user_.office, overview.officeName), QString::fromStdString(user_.board),
                               QString::number(user_.level), QString::fromStdString(LevelName(user_.level))));
    int photos = 0;
    const int rows = static_cast<int>(overview.listings.size());
    // Widths that follow every new cell would measure all rows again for each.
    SizeColumns(*listings_->horizontalHeader(), QHeaderView::Fixed);
    listings_->setRowCount(rows);
    for (int row = 0; row < rows; ++row) {
        const OverviewLine& line = overview.listings[static_cast<std::size_t>(row)];
        const std::string cells[] = {line.number, line.kind,   line.address,
                                     line.agent,  line.status, std::to_string(line.photos)};
        for (int column = 0; column < listings_->columnCount(); ++column)
            listings_->setItem(row, column, new QTableWidgetItem(QString::fromStdString(cells[column])));
        photos += line.photos;
    }
    SizeColumns(*listings_->horizontalHeader(), QHeaderView::ResizeToContents);
    lblListings_->setText(QString("Your listings: %1, with %2 published photos").arg(rows).arg(photos));
}

}  // namespace host
