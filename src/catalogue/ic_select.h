// The dialog IC Type Select.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "shell/ground/app_state.h"

namespace pyxis {

inline constexpr std::int32_t kLargestLimit = 99999999;  // of a production limit, which has eight decimal digits

class CIcSelectDlg {
 public:
  struct CheckBox {
    bool enabled = true;
    bool checked = false;
  };

  // What stands at the boxes.
  static constexpr char kDisplaySerialCaption[] = "&Display Serial Number";
  static constexpr char kMassProductionCaption[] = "&Mass Production Mode";
  static constexpr char kProductionLimitCaption[] = "Production &Limit";
  static constexpr char kExhvIspCaption[] = "&EXHV ISP program";
  static constexpr char kIspCaption[] = "&ISP program";

  // False when no known writer has answered: the operator has been told, and the dialog counts as cancelled.
  bool OnInitDialog();
  void OnSeriesChange(int position);
  void OnTypeChange(int position);
  // Goes to the first IC of the model whose label begins so, in the current series first, by the steps of a click. A
  // name grows by its characters, unless they begin it `anew`, and each step starts from what stood in front of the
  // first one: neither a slip nor an IC on the way that only began alike leaves a trace in the lists and boxes. False
  // when no label begins so. Any other step of the operator ends the name.
  bool OnTypedName(std::string_view characters, bool anew);
  void OnDisplaySerial(bool checked);
  void OnMassProduction(bool checked);
  void OnProductionLimit(bool checked);
  void OnExhvIsp(bool checked);
  void OnIsp(bool checked);
  // False, with the operator told, when the text is no number from 1 to 99999999.
  bool OnLimitText(const std::string& text);
  // True when the dialog may close.
  bool OnOk();

  // Of the opening: the lists on offer are its, whatever writer comes meanwhile.
  Model model = Model::None;
  std::vector<std::string> seriesList, typeList;
  int seriesPosition = 0, typePosition = 0;
  CheckBox displaySerial, exhvIsp, isp, massProduction, productionLimit;
  bool limitEditEnabled = false;
  std::string limitText = "1";

  // The result.
  int seriesIndex = 0, typeIndex = 0;  // in the catalogue
  std::string chipName, seriesCaption;
  bool displaySerialValue = false, exhvIspValue = false, massProductionValue = false, productionLimitValue = false,
       ispValue = false;
  std::int32_t productionLimitCount = 1;
  std::function<void()> Changed = [] {};

 private:
  bool FindTyped(std::string_view typed);
  void TakeControls();  // the check values into the result; ends a typed name
  bool TakeLimit();     // the limit's text into the result
  std::string typed_;
  std::shared_ptr<const CIcSelectDlg> beforeName_;  // as it stood before the name's first character
};

}  // namespace pyxis
