#include "QEVCommonTools/FontPicker.hpp"

#include "viewkit/Controls.hpp"

namespace QEVCommonTools {

viewkit::View FontPicker::body() const { return viewkit::FontChooser(title, selection); }

}  // namespace QEVCommonTools
