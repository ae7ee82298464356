#pragma once

// Tells the service manager, where one waits for it (NOTIFY_SOCKET), that the daemon serves. Before any
// thread.
void notify_ready();
