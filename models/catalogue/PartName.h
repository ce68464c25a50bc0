#pragma once

#include <string_view>
#include <vector>

#include "models/catalogue/DeviceCatalogue.h"

namespace kvxm {

/// Grade codes of part names.
const std::vector<std::string_view>& speedCodes(Architecture architecture);
const std::vector<std::string_view>& voltageCodes();  ///< Tarvek only
const std::vector<std::string_view>& temperatureCodes(Architecture architecture);
const std::vector<std::string_view>& screenCodes();  ///< Tarvek only

/// Tarvek: capital letters, four digits, optionally "_SE". Morlan: capital letters and digits, both present.
bool isDeviceName(Architecture architecture, std::string_view name);
/// What isDeviceName expects, as text for the user.
std::string_view deviceNameForm(Architecture architecture);

/// Four capital letters and three or four digits.
bool isPackageName(std::string_view name);

/// Fills name and key of a part from its other fields.
void composeNames(Part& part, Architecture architecture);

}  // namespace kvxm
