#include "app/shell/MainModel.h"

namespace velmorin {

MainModel::MainModel(ShellContext& context, QObject* parent) : QObject{parent}, m_start{context}, m_profiles{context} {}

void MainModel::setTab(MainTab tab) {
    if (tab == m_tab || !tabs().contains(tab)) return;
    m_tab = tab;
    Q_EMIT tabChanged();
}

} // namespace velmorin
