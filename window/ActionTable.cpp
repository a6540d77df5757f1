#include "window/ActionTable.h"

#include <utility>

namespace tabulon {

void ActionTable::add(std::string_view action, Perform perform, Validate validate) {
    entries_.insert_or_assign(std::string(action), Entry{std::move(perform), std::move(validate)});
}

bool ActionTable::validateMenuItem(const MenuItem& item) const {
    const auto found = entries_.find(item.action);
    return found != entries_.end() && (!found->second.validate || found->second.validate(item));
}

void ActionTable::perform(const MenuItem& sender) const {
    // A copy, because the operation may destroy the responder that owns this table.
    const Perform operation = entries_.find(sender.action)->second.perform;
    if (observer_)
        observer_->willPerformAction();
    operation(sender);
}

} // namespace tabulon
