// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UUID.hpp"

#include <memory>
#include <utility>

namespace QEVModels {

// Gives a model an identity in a list. Two wrappers of the same model have different ids. Shared
// pointers own the wrappers.
//
//     const auto row = std::make_shared<ModelWrapper<QEVNetworkProtocol>>(protocol);
//     rows.emplace(row->id(), row->model());
template <class Model>
class ModelWrapper {
public:
  explicit ModelWrapper(std::shared_ptr<Model> model) : model_(std::move(model)) {}
  ModelWrapper(const ModelWrapper&) = delete;
  ModelWrapper& operator=(const ModelWrapper&) = delete;
  ~ModelWrapper() = default;

  // Never changes.
  const foundation::UUID& id() const { return id_; }
  const std::shared_ptr<Model>& model() const { return model_; }

private:
  foundation::UUID id_ = foundation::UUID::random();
  std::shared_ptr<Model> model_;
};

}  // namespace QEVModels
