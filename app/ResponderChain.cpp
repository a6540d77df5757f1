#include "app/ResponderChain.h"

#include "app/DocumentController.h"

#include <utility>

namespace tabulon {

ResponderChain::ResponderChain(const DocumentController& documents,
                               std::vector<const ActionTable*> application)
    : documents_(documents), application_(std::move(application)) {}

const ActionTable* ResponderChain::responderTo(std::string_view action) const {
    if (const Document* current = documents_.currentDocument()) {
        const ViewController* controller = documents_.getViewController(*current);
        if (controller && controller->actions().contains(action))
            return &controller->actions();
    }
    if (documents_.actions().contains(action))
        return &documents_.actions();
    for (const ActionTable* table : application_)
        if (table->contains(action))
            return table;
    return nullptr;
}

bool ResponderChain::validateMenuItem(const MenuItem& item) const {
    if (item.action.empty())
        return item.submenu.has_value();
    const ActionTable* responder = responderTo(item.action);
    return responder && responder->validateMenuItem(item);
}

bool ResponderChain::performMenuItem(const MenuItem& item) const {
    const ActionTable* responder = responderTo(item.action);
    if (!responder || !responder->validateMenuItem(item))
        return false;
    responder->perform(item);
    return true;
}

} // namespace tabulon
