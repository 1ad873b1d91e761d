// SPDX-License-Identifier: MIT
#include "pages/network/ClWidgetInfrastructure.h"

#include "pages/network/ClWidgetInfrastructureDhcp.h"
#include "pages/network/ClWidgetInfrastructureManual.h"
#include "pages/network/ClWidgetInfrastructureSearch.h"
#include "pages/network/ClWidgetInfrastructureTop.h"
#include "pages/network/NetworkParts.h"

#include <QStackedLayout>

ClWidgetInfrastructure::ClWidgetInfrastructure(QWidget* parent)
    : ClWidgetBase(parent),
      m_stack(new QStackedLayout(this)) {
    m_top = addPage<ClWidgetInfrastructureTop>();
    auto* search = addPage<ClWidgetInfrastructureSearch>();
    addPage<ClWidgetInfrastructureManual>();
    addPage<ClWidgetInfrastructureDhcp>();
    connect(m_stack, &QStackedLayout::currentChanged, this,
            &ClWidgetInfrastructure::slotChangePage);
    connect(m_top, &ClWidgetInfrastructureTop::sigUseInfra, this,
            &ClWidgetInfrastructure::sigUseInfra);
    connectLateResults(*search);
    slotChangePage(INFRASTRUCTURE_TOP);
}

template <class Page>
Page* ClWidgetInfrastructure::addPage() {
    auto* page = new Page;
    m_stack->addWidget(page);
    connect(page, &Page::sigChangePage, m_stack, &QStackedLayout::setCurrentIndex);
    return page;
}

// A key that the camera refuses would otherwise go unnoticed: the SSID that was accepted a moment
// before has taken the user back to the top.
void ClWidgetInfrastructure::connectLateResults(ClWidgetInfrastructureSearch& search) {
    connect(this, &ClWidgetInfrastructure::sigReceiveCommand, &search,
            [this, &search](const VX_CMD& message) {
                if (m_relay.inner() == m_top) {
                    search.slotReceiveLateResult(message);
                }
            });
    connect(&search, &ClWidgetInfrastructureSearch::sigRefused, m_top,
            &ClWidgetInfrastructureTop::showErrorMsgBox);
}

void ClWidgetInfrastructure::showInit(bool isPolling) {
    ClWidgetBase* page = m_relay.inner();
    if (page != nullptr && (!isPolling || page == m_top)) {
        page->showInit(isPolling);
    }
}

void ClWidgetInfrastructure::setUseInfra(bool isUsed) {
    m_top->setUseInfra(isUsed);
}

void ClWidgetInfrastructure::slotChangePage(int /*index*/) {
    m_relay.connectTo(qobject_cast<ClWidgetBase*>(m_stack->currentWidget()));
    showInit(false);
}

void ClWidgetInfrastructure::slotChangeTab(int index) {
    if (index != INFRASTRUCTURE_TAB) {
        m_stack->setCurrentIndex(INFRASTRUCTURE_TOP);
    }
}

void ClWidgetInfrastructure::slotReceiveCommand(const VX_CMD& clCommand) {
    Q_EMIT sigReceiveCommand(clCommand);
}
