// The root of everything that handles messages and commands: an object with a message map.
#pragma once

#include "base/object.h"
#include "framework/message_map.h"

class CCmdTarget : public CObject {
    QV_DECLARE_RUNTIME_CLASS

    // This class's table; derived classes override it and chain to their base's GetThisMessageMap().
    virtual const MessageMap* GetMessageMap() const;
    static const MessageMap* GetThisMessageMap();

    // Routes a command (code 0) or a control notification with this id through the message map. True when handled.
    virtual bool OnCmdMsg(UINT id, UINT code);
};
