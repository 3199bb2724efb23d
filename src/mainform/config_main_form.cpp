// SPDX-License-Identifier: MIT
#include "mainform/config_main_form.h"

#include "env/help_index.h"
#include "env/language_module.h"
#include "env/message_ids.h"
#include "mainform/page_table.h"
#include "onudesk/window_names.h"
#include "pages/framework/controls.h"
#include "pages/framework/item_dialog.h"
#include "platform/desktop.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <QWindow>

namespace onudesk {

namespace {

constexpr int kBorder = 2;
constexpr QSize kInitialClient(786, 548);
constexpr QSize kMinimum(750, 562);
constexpr int kTreeWidth = 150;
constexpr int kTreeIndent = 19;
static_assert(window_names::kItemTypeRole == Qt::UserRole);
constexpr int kTreeName = 20033;
const QColor kFormColour(131, 197, 228);
const QColor kWorkColour(232, 240, 247);
const QColor kSelectedText(0, 128, 0);

std::string formHelpBase() {
    return "hh mk:@MSITStore:" + helpFileName("confighelp.chm") + "::/";
}

std::string levelText(const char* name, std::int32_t number) {
    return number == -1 ? std::string() : name + std::to_string(number);
}

// Draws a selected node in green on the tree's own background.
class TreeDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        if ((option->state & QStyle::State_Selected) != 0) {
            option->state &= ~QStyle::State_Selected;
            option->palette.setColor(QPalette::Text, kSelectedText);
        }
    }
};

void addItem(QTreeWidgetItem& parent, const MenuItem& item) {
    auto* node = new QTreeWidgetItem(&parent, {shown(messageText(item.itemType))});
    node->setToolTip(0, node->text(0));
    node->setData(0, window_names::kItemTypeRole, item.itemType);
    for (const MenuItem& child : item.children) {
        addItem(*node, child);
    }
}

} // namespace

TConfigMainForm::TConfigMainForm(Session& session)
    : QDialog(nullptr, Qt::Dialog | Qt::FramelessWindowHint), session_(session),
      helpBase_(formHelpBase()), helpCommand_(helpBase_ + "index.htm") {
    setObjectName(QLatin1String(window_names::kMainForm));
    buildFrame();
    loadHelpIndexOnce(messageText(message::helpFile));
}

TConfigMainForm::~TConfigMainForm() {
    FormClose();
    pages_.clear();
}

void TConfigMainForm::buildFrame() {
    setFont(textFont());
    paintPlain(*this, kFormColour);
    setMouseTracking(true);
    TitlePanel = new TitleBar(this, kFormColour);
    TitlePanel->onClose = [this] { close(); };
    WorkPanel = new QFrame(this);
    WorkPanel->setObjectName(QStringLiteral("WorkPanel"));
    paintPlain(*WorkPanel, kWorkColour);
    Panel1 = new QFrame(WorkPanel);
    Panel1->setObjectName(QLatin1String(window_names::kPageArea));

    snmpGroup = new SnmpPanel(session_.context, Panel1);
    ConfigItemTree = new QTreeWidget(Panel1);
    ConfigItemTree->setObjectName(QLatin1String(window_names::kItemTree));
    ConfigItemTree->setAccessibleName(shown(messageText(kTreeName)));
    ConfigItemTree->setHeaderHidden(true);
    ConfigItemTree->setIndentation(kTreeIndent);
    ConfigItemTree->setEditTriggers(QAbstractItemView::NoEditTriggers);
    ConfigItemTree->setItemDelegate(new TreeDelegate(ConfigItemTree));
    QPalette plain = ConfigItemTree->palette();
    plain.setColor(QPalette::Highlight, plain.color(QPalette::Base));
    ConfigItemTree->setPalette(plain);
    // Long captions are scrolled to, not cut.
    ConfigItemTree->header()->setStretchLastSection(false);
    ConfigItemTree->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    connect(ConfigItemTree, &QTreeWidget::itemClicked, this, &TConfigMainForm::ConfigItemTreeClick);
    // The keyboard opens items as the mouse does.
    connect(ConfigItemTree, &QTreeWidget::itemActivated, this,
            &TConfigMainForm::ConfigItemTreeClick);
    ConfigItemTree->setGeometry(0, 0, kTreeWidth, kInitialClient.height());

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kBorder, kBorder, kBorder, kBorder);
    column->setSpacing(0);
    column->addWidget(TitlePanel);
    column->addWidget(WorkPanel, 1);
    auto* work = new QVBoxLayout(WorkPanel);
    work->setContentsMargins(0, 0, 0, 0);
    work->addWidget(Panel1);
    // The resize cursors are for the border only.
    TitlePanel->setCursor(Qt::ArrowCursor);
    WorkPanel->setCursor(Qt::ArrowCursor);
    setMinimumSize(kMinimum);
    resize((kInitialClient + QSize(2 * kBorder, 2 * kBorder)).expandedTo(kMinimum));
}

void TConfigMainForm::FormActivate() {
    if (activated_) {
        return;
    }
    activated_ = true;
    const QString text = shown(title());
    setWindowTitle(text);
    TitlePanel->TitleLabel->setText(text);
    if (const auto menu = loadMenu(session_.context)) {
        buildTree(*menu);
    }
    ConfigItemTree->setVisible(!singleItem());
    layoutWork();
    snmpGroup->load(); // a single item may have no page, which leaves the panel to be seen
    if (singleItem()) {
        openItem(session_.context.subUnitItemType);
    }
}

std::string TConfigMainForm::title() const {
    const SessionContext& context = session_.context;
    std::string text = messageText(message::subject) + messageText(11003) +
                       " (IP:" + context.agentAddress + levelText("  OLT:", context.oltNumber) +
                       levelText(" PON:", context.ponNumber) +
                       levelText(" ONU:", context.onuNumber) + ")";
    if (singleItem()) {
        text += " " + messageText(context.subUnitItemType);
    }
    return text;
}

void TConfigMainForm::buildTree(const Menu& menu) {
    auto* root = new QTreeWidgetItem(ConfigItemTree, {shown(menu.caption)});
    for (const MenuItem& item : menu.items) {
        addItem(*root, item);
    }
}

void TConfigMainForm::ConfigItemTreeClick() {
    if (singleItem()) {
        openItem(session_.context.subUnitItemType);
        return;
    }
    const QTreeWidgetItem* node = ConfigItemTree->currentItem();
    if (node != nullptr && node->childCount() == 0) {
        openItem(node->data(0, window_names::kItemTypeRole).toInt());
    }
}

void TConfigMainForm::openItem(std::int32_t itemType) {
    helpCommand_ = helpBase_ + helpTopic(itemType);
    if (itemType == currentItemType()) {
        return;
    }
    session_.context.currentItemType = itemType;
    detachPages();
    const auto cached = pages_.find(itemType);
    const bool isNew = cached == pages_.end();
    if (isNew) {
        currentPage_ = createPage(session_, itemType, Panel1);
        if (currentPage_ != nullptr) {
            pages_.emplace(itemType, currentPage_);
        }
    } else {
        currentPage_ = cached->second.get();
    }
    if (itemType != 0 && currentPage_ != nullptr) {
        showPage(isNew);
    }
}

void TConfigMainForm::detachPages() {
    currentPage_ = nullptr;
    for (const auto& [itemType, page] : pages_) {
        page->hide();
    }
    snmpGroup->show();
}

void TConfigMainForm::showPage(bool isNew) {
    layoutPage();
    snmpGroup->hide(); // covered anyway, and must not be reached with the tab key
    currentPage_->show();
    if (isNew) {
        currentPage_->readFirst();
    } else {
        registerReadRoute(session_, currentPage_->itemType(), currentPage_->replyHandle());
        currentPage_->updatePage();
    }
}

void TConfigMainForm::layoutPage() {
    if (currentPage_ != nullptr) {
        const int left = singleItem() ? 0 : ConfigItemTree->width() + 1;
        currentPage_->setGeometry(left, currentPage_->y(), Panel1->width() - left,
                                  Panel1->height());
    }
}

void TConfigMainForm::centreSettings() {
    const int tree = ConfigItemTree->width();
    snmpGroup->move((Panel1->width() - snmpGroup->width() - tree) / 2 + tree,
                    (Panel1->height() - snmpGroup->height()) / 2);
}

void TConfigMainForm::layoutWork() {
    // Panel1 has its size only after the layouts ran.
    layout()->activate();
    WorkPanel->layout()->activate();
    // The tree keeps the panel's full height, whatever its share of the window was before.
    ConfigItemTree->resize(ConfigItemTree->width(), Panel1->height());
    layoutPage();
    centreSettings();
}

void TConfigMainForm::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    if (event->oldSize().isValid() && event->oldSize().width() > 0) {
        const double horizontal =
            static_cast<double>(event->size().width()) / event->oldSize().width();
        ConfigItemTree->resize(static_cast<int>(ConfigItemTree->width() * horizontal),
                               ConfigItemTree->height());
    }
    layoutWork();
}

void TConfigMainForm::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    FormActivate();
}

void TConfigMainForm::keyPressEvent(QKeyEvent* event) {
    // Neither Enter nor Escape ends the window: both belong to the fields being edited.
    if (event->key() == Qt::Key_F1) {
        platform::runCommand(helpCommand_);
    }
    event->accept();
}

Qt::Edges TConfigMainForm::edgesAt(QPoint position) const {
    Qt::Edges edges;
    edges.setFlag(Qt::LeftEdge, position.x() < kBorder);
    edges.setFlag(Qt::RightEdge, position.x() >= width() - kBorder);
    edges.setFlag(Qt::TopEdge, position.y() < kBorder);
    edges.setFlag(Qt::BottomEdge, position.y() >= height() - kBorder);
    return edges;
}

void TConfigMainForm::mousePressEvent(QMouseEvent* event) {
    const Qt::Edges edges = edgesAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || edges == 0 ||
        (windowHandle() != nullptr && windowHandle()->startSystemResize(edges))) {
        return;
    }
    // Where no window manager resizes windows, the window does it.
    resizing_ = Resizing{edges, event->globalPosition().toPoint(), geometry()};
}

void TConfigMainForm::mouseReleaseEvent(QMouseEvent* /*event*/) {
    resizing_.reset();
}

void TConfigMainForm::resizeBy(QPoint moved) {
    QRect wanted = resizing_->geometry;
    wanted.adjust(resizing_->edges.testFlag(Qt::LeftEdge) ? moved.x() : 0,
                  resizing_->edges.testFlag(Qt::TopEdge) ? moved.y() : 0,
                  resizing_->edges.testFlag(Qt::RightEdge) ? moved.x() : 0,
                  resizing_->edges.testFlag(Qt::BottomEdge) ? moved.y() : 0);
    if (wanted.width() >= minimumWidth() && wanted.height() >= minimumHeight()) {
        setGeometry(wanted);
    }
}

void TConfigMainForm::mouseMoveEvent(QMouseEvent* event) {
    if (resizing_) {
        resizeBy(event->globalPosition().toPoint() - resizing_->grip);
        return;
    }
    const Qt::Edges edges = edgesAt(event->position().toPoint());
    const bool sideways = (edges & (Qt::LeftEdge | Qt::RightEdge)) != 0;
    const bool upright = (edges & (Qt::TopEdge | Qt::BottomEdge)) != 0;
    const bool falling =
        edges == (Qt::LeftEdge | Qt::TopEdge) || edges == (Qt::RightEdge | Qt::BottomEdge);
    setCursor(sideways && upright ? (falling ? Qt::SizeFDiagCursor : Qt::SizeBDiagCursor)
              : sideways          ? Qt::SizeHorCursor
              : upright           ? Qt::SizeVerCursor
                                  : Qt::ArrowCursor);
}

void TConfigMainForm::FormClose() {
    // The pages go with the window: a box may still be open in one of their handlers.
    detachPages();
    for (const auto& [itemType, page] : pages_) {
        unregisterRoutes(session_, itemType);
    }
    ConfigItemTree->clear();
}

void TConfigMainForm::done(int result) {
    for (ItemDialog* dialog : findChildren<ItemDialog*>()) {
        dialog->reject();
    }
    QDialog::done(result);
    FormClose();
}

} // namespace onudesk
