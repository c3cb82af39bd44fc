#include "office/task.h"

#include "common/errors.h"
#include "controls/message_box.h"

namespace saldoro {

bool Attempt(const std::function<void()> &action)
{
    try {
        action();
        return true;
    } catch (const std::exception &error) {
        ShowMessage(MessageKind::Critical, QString::fromUtf8(error.what()));
    }
    return false;
}

} // namespace saldoro
