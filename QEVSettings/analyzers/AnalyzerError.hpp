#pragma once

#include "QEVDependencies/ErrorState.hpp"
#include "QEVDependencies/QEVNetworkProtocol.hpp"
#include "viewkit/View.hpp"

#include <exception>
#include <functional>
#include <optional>

namespace QEVSettings {

// Calls into an analyzer. What it throws becomes the state to show: "Error", with the QEVError if
// it is one.
std::optional<QEVDependencies::ErrorState> failureOf(const std::function<void()>& call);

// Shows the state on the record's row, with the default animation.
void showErrorState(const QEVDependencies::ErrorState& state,
                    const QEVDependencies::QEVNetworkProtocol& protocol);

// The state as a text of the page; nothing for an empty one.
viewkit::View analyzerErrorText(const QEVDependencies::ErrorState& state);

// The same for what the body of an analyzer's own view threw.
viewkit::View analyzerErrorView(const std::exception_ptr& thrown);

}  // namespace QEVSettings
