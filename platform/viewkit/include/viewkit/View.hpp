#pragma once
// filled in below
namespace viewkit {
class View;
}
