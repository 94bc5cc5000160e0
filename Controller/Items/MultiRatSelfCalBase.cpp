#include "MultiRatSelfCalBase.h"

#include <cctype>
#include <memory>
#include <string>

#include "CalTextConverters.h"
#include "ErrorCodeInfo.h"
#include "Nvram/CalDataIntegrity.h"
#include "TIniFile.h"

namespace {

// Bytes as two hexadecimal digits each, one blank between them: anything
// else (a lone digit, another character) is no block.
bool IsHexText(const std::string &text)
{
    if (text.size() % 3 == 1)
        return false;
    for (size_t i = 0; i < text.size(); ++i) {
        const bool ok = i % 3 == 2 ? text[i] == ' ' : std::isxdigit(static_cast<unsigned char>(text[i])) != 0;
        if (!ok)
            return false;
    }
    return true;
}

} // namespace

bool IMultiRatSelfCal::IsSectionInFile(TIniFile *file) { return file && file->IsSectionExist(Section().toStdString()); }

void IMultiRatSelfCal::Reset()
{
    m_blocks.clear();
    m_isDataValid = false;
    m_errorMessage.clear();
}

QString IMultiRatSelfCal::CollectFailureText() const { return "Failed to collect self-cal LID info of " + Section(); }

uint32_t IMultiRatSelfCal::FailCollect()
{
    m_errorMessage = CollectFailureText();
    return ERROR_CODE_GENERAL;
}

uint32_t IMultiRatSelfCal::UploadFromFlash()
{
    m_errorMessage.clear();
    m_isDataValid = false;
    if (!CollectLidInfo())
        return FailCollect();
    const uint32_t code = ReadBlocks();
    if (code != ERROR_CODE_SUCCESS)
        return code;
    m_isDataValid = true;
    return ERROR_CODE_SUCCESS;
}

uint32_t IMultiRatSelfCal::DownloadToFlash()
{
    m_errorMessage.clear();
    if (!m_isDataValid)
        return FailDataNotValid();
    if (!CollectLidInfo())
        return FailCollect();
    const auto integrity = std::make_unique<CCalDataIntegrity>();
    return WriteBlocks();
}

uint32_t IMultiRatSelfCal::WriteToFile(TIniFile *file)
{
    m_errorMessage.clear();
    if (!file)
        return ERROR_CODE_FILE_NOT_OPERABLE;
    if (!CollectLidInfo())
        return FailCollect();
    WriteRfChipId(file);
    const std::string section = Section().toStdString();
    for (const SSelfCalLidInfo &block : m_blocks) {
        if (block.buffer.empty() || block.size == 0) {
            m_errorMessage = IsFirstGeneration() ? "Operation buffer of self-cal data has problem."
                                                 : "Operation buffer of self-cal data has the problem.";
            return ERROR_CODE_GENERAL;
        }
        std::string text(size_t(block.size) * 3, '\0');
        if (!BinaryToHexText(block.buffer.data(), int(block.size), text.data(), int(text.size()))) {
            m_errorMessage = "Transform the binary data to text failed.";
            return ERROR_CODE_GENERAL;
        }
        text.resize(text.size() - 1);
        file->WriteString(section, block.key, text);
    }
    return ERROR_CODE_SUCCESS;
}

uint32_t IMultiRatSelfCal::ReadFromFile(TIniFile *file)
{
    m_isDataValid = false;
    const std::string section = Section().toStdString();
    const uint32_t checked = m_rfChipIdRecorder.CheckFileSections(file, {section}, m_errorMessage);
    if (checked != ERROR_CODE_SUCCESS)
        return checked;
    if (!CollectLidInfo())
        return FailCollect();
    for (SSelfCalLidInfo &block : m_blocks) {
        const std::string text = file->ReadString(section, block.key, "");
        if (text.empty()) {
            m_errorMessage = QString::asprintf(
                IsFirstGeneration() ? "Execution Error : The Key value [%s] does not exist under Section [%s].\nPlease "
                                      "Check the INI/Cal file.\n"
                                    : "Execution Warning : The Key value [%s] does not exist under Section [%s].\n"
                                      "Please Check the INI/Cal file.\n",
                block.key, section.c_str());
            return ERROR_CODE_FILE_INCOMPLETE;
        }
        const int bytes = int((text.size() + 1) / 3);
        // The first generation takes a shorter text over the start of the
        // block; the later ones want the block's size exactly.
        const bool badLength = IsFirstGeneration() ? bytes > int(block.size) : bytes != int(block.size);
        if (badLength) {
            m_errorMessage = QString::asprintf(
                IsFirstGeneration()
                    ? "Execution Error : The data length (%d) of Key value [%s] under Section [%s] \nis larger than "
                      "data length (%d) which reported from Dut. Please Check the INI/Cal file.\n"
                    : "Execution Warning : The data length (%d) of Key value [%s] under Section [%s] \nis "
                      "inconsistent with the data length (%d) which reported from Dut. Please Check the INI/Cal "
                      "file.\n",
                bytes, block.key, section.c_str(), int(block.size));
            return ERROR_CODE_GENERAL;
        }
        if (block.buffer.size() < block.size)
            block.buffer.resize(block.size, 0);
        if (!IsHexText(text) || !HexTextToBinary(text.c_str(), int(text.size()), block.buffer.data(), int(block.size))) {
            m_errorMessage = "Transform the text to the binary data failed.";
            return ERROR_CODE_GENERAL;
        }
    }
    m_isDataValid = true;
    return ERROR_CODE_SUCCESS;
}
