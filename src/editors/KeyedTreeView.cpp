#include "editors/KeyedTreeView.h"

#include "platform/core/RaisedError.h"

namespace {

constexpr int kKeyRole = Qt::UserRole;

} // namespace

KeyedTreeView::KeyedTreeView(QWidget *parent) : QTreeWidget(parent)
{
    setObjectName("TreeView1");
    setHeaderHidden(true);
    setColumnCount(1);
    setRootIsDecorated(true);
}

QTreeWidgetItem *KeyedTreeView::makeNode(const std::string &key, const std::string &text)
{
    if (m_nodes.count(key) != 0)
        raiseRuntimeError(RuntimeErrorNumber::DuplicateKey);
    auto *item = new QTreeWidgetItem(QStringList(QString::fromStdString(text)));
    item->setData(0, kKeyRole, QString::fromStdString(key));
    m_nodes.emplace(key, item);
    return item;
}

void KeyedTreeView::addTopNode(const std::string &key, const std::string &text)
{
    addTopLevelItem(makeNode(key, text));
}

void KeyedTreeView::addChildNode(const std::string &parentKey, const std::string &key,
                                 const std::string &text)
{
    const auto parent = m_nodes.find(parentKey);
    if (parent == m_nodes.end())
        raiseRuntimeError(RuntimeErrorNumber::InvalidCall);
    parent->second->addChild(makeNode(key, text));
}

void KeyedTreeView::clearNodes()
{
    clear();
    m_nodes.clear();
}

void KeyedTreeView::selectFirstNode()
{
    if (topLevelItemCount() == 0)
        raiseRuntimeError(RuntimeErrorNumber::SubscriptOutOfRange);
    setCurrentItem(topLevelItem(0));
}

std::string KeyedTreeView::selectedKey() const
{
    const QTreeWidgetItem *item = currentItem();
    if (item == nullptr)
        raiseRuntimeError(RuntimeErrorNumber::ObjectNotSet);
    return item->data(0, kKeyRole).toString().toStdString();
}
