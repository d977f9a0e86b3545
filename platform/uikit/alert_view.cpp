#include "platform/uikit/alert_view.h"

namespace uikit {

AlertView::AlertView(std::string title, std::string message,
                     std::weak_ptr<AlertViewDelegate> delegate, std::string cancelButtonTitle,
                     std::vector<std::string> otherButtonTitles)
    : delegate_(std::move(delegate)) {
  this->title = std::move(title);
  this->message = std::move(message);
  buttons_.push_back({std::move(cancelButtonTitle), ButtonRole::Cancel});
  for (std::string& other : otherButtonTitles) buttons_.push_back({std::move(other)});
}

void AlertView::runButton(int index) {
  if (const auto delegate = delegate_.lock()) delegate->alertViewClickedButtonAtIndex(this, index);
}

}  // namespace uikit
