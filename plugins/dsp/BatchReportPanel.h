// The panel of "Batch Report": the path of the report.
#pragma once

#include "plugins/dsp/FilePanel.h"

class BatchReportPanel final : public FilePanel {
public:
    BatchReportPanel() noexcept;

protected:
    void OnChanged(int id) override;
};
