// SPDX-License-Identifier: MIT
#pragma once

#include "QEVDependencies/ErrorState.hpp"
#include "QEVDependencies/QEVNetworkProtocol.hpp"
#include "viewkit/View.hpp"

#include <exception>
#include <functional>
#include <optional>

namespace QEVSettings {

// Calls into an analyzer. An exception becomes the state to show, "Error" with the QEVError as its
// details, and is logged where it is no QEVError.
std::optional<QEVDependencies::ErrorState> failureOf(const std::function<void()>& call);

// Shows the state on the record's row, with the default animation.
void showErrorState(const QEVDependencies::ErrorState& state,
                    const QEVDependencies::QEVNetworkProtocol& protocol);

// The state as a text on the page; an empty view for an empty state.
viewkit::View analyzerErrorText(const QEVDependencies::ErrorState& state);

// The text for an exception that the body of an analyzer's view threw.
viewkit::View analyzerErrorView(const std::exception_ptr& thrown);

}  // namespace QEVSettings
