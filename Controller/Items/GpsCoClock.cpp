#include "GpsCoClock.h"

#include <cmath>
#include <limits>
#include <memory>

#include "ErrorCodeInfo.h"
#include "Nvram/CalDataIntegrity.h"
#include "TIniFile.h"

namespace {

constexpr uint32_t kTimeoutMs = 10000;
constexpr uint32_t kRecordSize = 24;
constexpr uint32_t kGpsCoClockVersion3 = 3;

// A coefficient in the target's fixed point: times `scale`, the fraction
// dropped towards zero; beyond 32 bits it stays at the nearest end.
int32_t ToFixed(float value, double scale)
{
    const double scaled = std::trunc(double(value) * scale);
    if (std::isnan(scaled))
        return 0;
    if (scaled <= double(std::numeric_limits<int32_t>::min()))
        return std::numeric_limits<int32_t>::min();
    if (scaled >= double(std::numeric_limits<int32_t>::max()))
        return std::numeric_limits<int32_t>::max();
    return int32_t(scaled);
}

float FromFixed(int32_t value, double scale) { return float(double(value) / scale); }

} // namespace

const char *const CGpsCoClock::kSection = "GPS COClock Coefficients";
const char *const CGpsCoClock::kLid = "NVRAM_EF_GPS_CO_CLOCK_DATA_LID";

bool CGpsCoClock::IsByL1() { return m_mmrfCapability.IsGpsCoClockByL1(); }

bool CGpsCoClock::IsV3() { return m_mmrfCapability.GetGpsCoClockVersion() == kGpsCoClockVersion3; }

bool CGpsCoClock::HasLid() const { return TAVO_NVRAM_LidExists(kLid) == TAVO_OK; }

void CGpsCoClock::ChooseMethod()
{
    const bool byErf = m_lteCapability.IsGpsCoClockByErf();
    if (HasLid())
        m_gpsMethod = byErf ? GPS_METHOD_NVRAM_AND_ERF : GPS_METHOD_NVRAM;
    else
        m_gpsMethod = byErf ? GPS_METHOD_ERF : GPS_METHOD_NVRAM_ONLY_NO_LID;
}

bool CGpsCoClock::HasUValues() { return HasLid() || !m_lteCapability.IsGpsCoClockByErf(); }

bool CGpsCoClock::IsSectionInFile(TIniFile *file) const { return file && file->IsSectionExist(kSection); }

// ---- Layer 1 and E-RF ----------------------------------------------------------

TAVO_RESULT CGpsCoClock::ReadL1()
{
    if (IsV3()) {
        TavoMMGpsCoClockV3Cnf cnf = {};
        const TAVO_RESULT result = TAVO_MMGps_GetCoClockV3(Handle(), kTimeoutMs, &cnf);
        if (result == TAVO_OK) {
            C0 = FromFixed(cnf.c0, TAVO_GPS_C0_SCALE);
            C1 = FromFixed(cnf.c1, TAVO_GPS_C1_SCALE);
            coefficient2 = FromFixed(cnf.coefficient2, TAVO_GPS_COEFFICIENT_SCALE);
            coefficient3 = FromFixed(cnf.coefficient3, TAVO_GPS_COEFFICIENT_SCALE);
        }
        return result;
    }
    TavoMMGpsCoClockCnf cnf = {};
    const TAVO_RESULT result = TAVO_MMGps_GetCoClock(Handle(), kTimeoutMs, &cnf);
    if (result == TAVO_OK) {
        C0 = FromFixed(cnf.c0, TAVO_GPS_C0_SCALE);
        C1 = FromFixed(cnf.c1, TAVO_GPS_C1_SCALE);
    }
    return result;
}

TAVO_RESULT CGpsCoClock::WriteL1()
{
    if (IsV3()) {
        const TavoMMGpsCoClockV3Req req = {C0,
                                           C1,
                                           coefficient2,
                                           coefficient3,
                                           ToFixed(C0, TAVO_GPS_C0_SCALE),
                                           ToFixed(C1, TAVO_GPS_C1_SCALE),
                                           ToFixed(coefficient2, TAVO_GPS_COEFFICIENT_SCALE),
                                           ToFixed(coefficient3, TAVO_GPS_COEFFICIENT_SCALE)};
        return TAVO_MMGps_SetCoClockV3(Handle(), kTimeoutMs, &req);
    }
    const TavoMMGpsCoClockReq req = {C0, C1, ToFixed(C0, TAVO_GPS_C0_SCALE), ToFixed(C1, TAVO_GPS_C1_SCALE)};
    return TAVO_MMGps_SetCoClock(Handle(), kTimeoutMs, &req);
}

TAVO_RESULT CGpsCoClock::ReadErf()
{
    TavoERfCoClock cnf = {};
    const TAVO_RESULT result = TAVO_ERf_GetCoClock(Handle(), kTimeoutMs, &cnf);
    if (result == TAVO_OK) {
        C0 = cnf.c0;
        C1 = cnf.c1;
    }
    return result;
}

TAVO_RESULT CGpsCoClock::WriteErf()
{
    const TavoERfCoClock req = {C0, C1};
    const auto integrity = std::make_unique<CCalDataIntegrity>();
    return TAVO_ERf_SetCoClock(Handle(), &req, kTimeoutMs);
}

// ---- NVRAM record -----------------------------------------------------------------

TAVO_RESULT CGpsCoClock::PrepareNvramBuffers() { return PrepareRecordBuffer(kLid, m_rawBuffer, &m_rawSize); }

TAVO_RESULT CGpsCoClock::DecomposeNvramData() { return MoveFields(false); }

TAVO_RESULT CGpsCoClock::ComposeNvramData() { return MoveFields(true); }

TAVO_RESULT CGpsCoClock::MoveFields(bool toRecord)
{
    if (m_rawSize != kRecordSize)
        return TAVO_ERR_FAILED;
    const std::pair<const char *, float *> fields[] = {{"C0", &C0}, {"C1", &C1}, {"initU", &initU}, {"lastU", &lastU}};
    for (const auto &[field, value] : fields) {
        const TAVO_RESULT result =
            toRecord ? TAVO_NVRAM_SetField(kLid, field, m_rawBuffer.data(), m_rawSize, value, sizeof *value)
                     : TAVO_NVRAM_GetField(kLid, field, m_rawBuffer.data(), m_rawSize, value, sizeof *value);
        if (result != TAVO_OK)
            return result;
    }
    return TAVO_OK;
}

// ---- Movements ------------------------------------------------------------------

uint32_t CGpsCoClock::UploadFromFlash()
{
    m_errorMessage.clear();
    m_isDataValid = false;
    if (IsByL1()) {
        const TAVO_RESULT result = ReadL1();
        if (result != TAVO_OK)
            return FailWithTavoResult(ERROR_CODE_TAVO_COMMAND_FAILED, result);
    } else {
        ChooseMethod();
        if (m_gpsMethod == GPS_METHOD_ERF) {
            const TAVO_RESULT result = ReadErf();
            if (result != TAVO_OK)
                return FailWithTavoResult(ERROR_CODE_TAVO_COMMAND_FAILED, result);
        } else {
            const uint32_t code =
                UploadNvramRecords([this](CNvramBatch &batch) { batch.Add(kLid, m_rawSize, m_rawBuffer.data()); });
            if (code != ERROR_CODE_SUCCESS)
                return code;
        }
    }
    m_isDataValid = true;
    return ERROR_CODE_SUCCESS;
}

uint32_t CGpsCoClock::DownloadToFlash()
{
    m_errorMessage.clear();
    if (!m_isDataValid)
        return FailDataNotValid();
    TAVO_RESULT result = TAVO_OK;
    if (IsByL1()) {
        result = WriteL1();
    } else {
        ChooseMethod();
        if (m_gpsMethod != GPS_METHOD_ERF) {
            const uint32_t code = DownloadNvramRecords(
                true, [this](CNvramBatch &batch) { batch.Add(kLid, m_rawSize, m_rawBuffer.data()); });
            if (code != ERROR_CODE_SUCCESS)
                return code;
        }
        if (m_gpsMethod == GPS_METHOD_ERF || m_gpsMethod == GPS_METHOD_NVRAM_AND_ERF)
            result = WriteErf();
    }
    if (result != TAVO_OK)
        return FailWithTavoResult(ERROR_CODE_TAVO_COMMAND_FAILED, result);
    return ERROR_CODE_SUCCESS;
}

uint32_t CGpsCoClock::ReadFromFile(TIniFile *file)
{
    m_isDataValid = false;
    const uint32_t checked = m_rfChipIdRecorder.CheckFileSections(file, {kSection}, m_errorMessage);
    if (checked != ERROR_CODE_SUCCESS)
        return checked;
    C0 = float(file->ReadDouble(kSection, "C0", 0));
    C1 = float(file->ReadDouble(kSection, "C1", 0));
    // The file has no second and third order coefficients: a version 3
    // target keeps its own.
    if (IsV3()) {
        TavoMMGpsCoClockV3Cnf cnf = {};
        const TAVO_RESULT result = TAVO_MMGps_GetCoClockV3(Handle(), kTimeoutMs, &cnf);
        if (result != TAVO_OK)
            return FailWithTavoResult(ERROR_CODE_TAVO_COMMAND_FAILED, result);
        coefficient2 = FromFixed(cnf.coefficient2, TAVO_GPS_COEFFICIENT_SCALE);
        coefficient3 = FromFixed(cnf.coefficient3, TAVO_GPS_COEFFICIENT_SCALE);
    }
    if (HasUValues()) {
        initU = float(file->ReadDouble(kSection, "initU", 0));
        lastU = float(file->ReadDouble(kSection, "lastU", 0));
    }
    m_isDataValid = true;
    return ERROR_CODE_SUCCESS;
}

uint32_t CGpsCoClock::WriteToFile(TIniFile *file)
{
    m_errorMessage.clear();
    if (!file)
        return ERROR_CODE_FILE_NOT_OPERABLE;
    file->WriteDouble(kSection, "C0", double(C0));
    file->WriteDouble(kSection, "C1", double(C1));
    if (HasUValues()) {
        file->WriteDouble(kSection, "initU", double(initU));
        file->WriteDouble(kSection, "lastU", double(lastU));
    }
    return ERROR_CODE_SUCCESS;
}
