#pragma once

/// The application.
class CQuarnelApp {
public:
    /// Shows the main dialog and returns when it has closed: always false, as there is nothing
    /// left to run then. Throws std::runtime_error when the dialog cannot be made.
    bool InitInstance();
};
