// The interface descriptions that other languages and foreign hosts are built from say the same as the C++ headers:
// identifiers, slot order, argument types.
#include <gtest/gtest.h>

#include <cstring>
#include <type_traits>

#include "host/interfaces/dialog_service.h"
#include "host/interfaces/multi_user.h"
#include "host/interfaces/session_data.h"
#include "host/interfaces/tpf.h"
#include "qvclient/qvsettingsdialog/resources/settings_interfaces.h"

// The generated headers declare the same names, so they stand in a namespace, where specializing a template of the
// compiler's is not possible.
#undef __CRT_UUID_DECL
#undef DEFINE_GUID
#define DEFINE_GUID(name, ...) [[maybe_unused]] static const GUID name = MakeGuid(__VA_ARGS__)
namespace idl {
static constexpr GUID MakeGuid(unsigned long a, unsigned short b, unsigned short c, unsigned char d0, unsigned char d1,
                               unsigned char d2, unsigned char d3, unsigned char d4, unsigned char d5, unsigned char d6,
                               unsigned char d7) {
    return {a, b, c, {d0, d1, d2, d3, d4, d5, d6, d7}};
}
// Known beforehand, so that the generated forward declarations do not mean the headers' interfaces.
struct ITPFHost;
struct ITPFObject;
struct ITPFMenuCommand;
struct ISessionDataManager;
struct IMultiUserManager;
struct HostDialogService;
struct IQVSettingsDialogDataIO;
struct IQVSettingsDialogManager;
#include <session_types.h>
// It imports the types.
#include <host_interfaces.h>
#include <qvsettingsdialog.h>
}  // namespace idl

namespace {

// A generated type stands for ours of the same name.
template <class T>
struct Ours {
    using Type = T;
};
template <class T>
struct Ours<T*> {
    using Type = typename Ours<T>::Type*;
};
template <>
struct Ours<idl::SESSIONDATATYPE> {
    using Type = SESSIONDATATYPE;
};
template <>
struct Ours<idl::ITPFHost> {
    using Type = ITPFHost;
};
template <>
struct Ours<idl::IQVSettingsDialogDataIO> {
    using Type = IQVSettingsDialogDataIO;
};

template <class Method>
struct Signature;
template <class Class, class Result, class... Arguments>
struct Signature<Result (Class::*)(Arguments...)> {
    using Type = Result(typename Ours<Arguments>::Type...);
};

// A pointer to a virtual method holds 1 plus its offset in the table of methods.
template <class Method>
std::size_t SlotOf(Method method) {
    std::size_t words[2] = {};
    static_assert(sizeof method == sizeof words);
    std::memcpy(words, &method, sizeof words);
    return (words[0] - 1) / sizeof(void*);
}

template <class HeaderMethod, class IdlMethod>
void ExpectSame(const char* name, HeaderMethod header, IdlMethod described) {
    static_assert(std::is_same_v<typename Signature<HeaderMethod>::Type, typename Signature<IdlMethod>::Type>);
    EXPECT_EQ(SlotOf(header), SlotOf(described)) << name;
}

#define EXPECT_SAME(method) ExpectSame(#method, &method, &idl::method)

TEST(InterfaceDescription, HasTheMethodsOfTheHeadersInTheSameSlots) {
    EXPECT_SAME(ITPFHost::CreateObject);
    EXPECT_SAME(ITPFObject::ConnectServices);
    EXPECT_SAME(ITPFObject::ReleaseHost);
    EXPECT_SAME(ITPFObject::SetHost);
    EXPECT_SAME(ITPFObject::Reserved4);
    EXPECT_SAME(ITPFObject::Reserved5);
    EXPECT_SAME(ITPFObject::Reserved6);
    EXPECT_SAME(ITPFMenuCommand::ExecuteCommand);
    EXPECT_SAME(ITPFMenuCommand::QueryCommandState);
    EXPECT_SAME(ITPFMenuCommand::Reserved3);
    EXPECT_SAME(ISessionDataManager::EnumSubKeys);
    EXPECT_SAME(ISessionDataManager::SaveData);
    EXPECT_SAME(ISessionDataManager::ReadData);
    EXPECT_SAME(ISessionDataManager::WriteData);
    EXPECT_SAME(ISessionDataManager::EnumValues);
    EXPECT_SAME(ISessionDataManager::LoadData);
    EXPECT_SAME(IMultiUserManager::CheckRight);
    EXPECT_SAME(HostDialogService::EditText);
    EXPECT_SAME(HostDialogService::ChooseText);
    EXPECT_SAME(HostDialogService::ViewText);
    EXPECT_SAME(HostDialogService::PlaceBeside);
    EXPECT_SAME(IQVSettingsDialogDataIO::GetData);
    EXPECT_SAME(IQVSettingsDialogDataIO::WriteData);
    EXPECT_SAME(IQVSettingsDialogDataIO::SaveData);
    EXPECT_SAME(IQVSettingsDialogManager::CreateModalDialog);
    EXPECT_SAME(IQVSettingsDialogManager::CreateModalDialogEx);
    EXPECT_SAME(IQVSettingsDialogManager::get_m_CtrlPath);
    EXPECT_SAME(IQVSettingsDialogManager::put_m_CtrlPath);
    EXPECT_SAME(IQVSettingsDialogManager::GetOptionKey);
    EXPECT_SAME(IQVSettingsDialogManager::SetOptionKey);
}

TEST(InterfaceDescription, HasTheIdentifiersOfTheHeaders) {
    EXPECT_EQ(idl::SID_SessionData, SID_SessionData);
    EXPECT_EQ(idl::SID_MultiUser, SID_MultiUser);
    EXPECT_EQ(idl::CLSID_HostDialogService, CLSID_HostDialogService);
    EXPECT_EQ(idl::IID_ITPFHost, IID_ITPFHost);
    EXPECT_EQ(idl::IID_ITPFObject, IID_ITPFObject);
    EXPECT_EQ(idl::IID_ITPFMenuCommand, IID_ITPFMenuCommand);
    EXPECT_EQ(idl::IID_ISessionDataManager, IID_ISessionDataManager);
    EXPECT_EQ(idl::IID_IMultiUserManager, IID_IMultiUserManager);
    EXPECT_EQ(idl::IID_HostDialogService, IID_HostDialogService);
    EXPECT_EQ(idl::IID_IQVSettingsDialogDataIO, IID_IQVSettingsDialogDataIO);
    EXPECT_EQ(idl::IID_IQVSettingsDialogManager, IID_IQVSettingsDialogManager);
    EXPECT_EQ(idl::CLSID_QVSettingsDialogManager, CLSID_QVSettingsDialogManager);
    EXPECT_EQ(idl::LIBID_QVSETTINGSDIALOGLib, LIBID_QVSETTINGSDIALOGLib);
}

}  // namespace
