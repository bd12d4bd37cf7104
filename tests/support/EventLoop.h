#pragma once

/// Lets what waits for the event loop happen: posted events and deferred deletions.
void turnEventLoop();
