#pragma once

#include <unknwn.h>
#include <windows.h>

struct IDirectSound8;
struct IDirectSoundBuffer;
struct IDirectSoundNotify;

/// Result codes of this interface: facility 0x878, negative; some are the system's own under another name.
inline constexpr HRESULT DS_OK = 0;
inline constexpr HRESULT DSERR_CONTROLUNAVAIL = static_cast<HRESULT>(0x8878001E);
inline constexpr HRESULT DSERR_INVALIDCALL = static_cast<HRESULT>(0x88780032);
inline constexpr HRESULT DSERR_PRIOLEVELNEEDED = static_cast<HRESULT>(0x88780046);
inline constexpr HRESULT DSERR_BADFORMAT = static_cast<HRESULT>(0x88780064);
inline constexpr HRESULT DSERR_NODRIVER = static_cast<HRESULT>(0x88780078);
inline constexpr HRESULT DSERR_BUFFERLOST = static_cast<HRESULT>(0x88780096);
inline constexpr HRESULT DSERR_NOAGGREGATION = static_cast<HRESULT>(0x80040110);
inline constexpr HRESULT DSERR_INVALIDPARAM = static_cast<HRESULT>(0x80070057);
inline constexpr HRESULT DSERR_NOINTERFACE = static_cast<HRESULT>(0x80004002);
inline constexpr HRESULT DSERR_OUTOFMEMORY = E_OUTOFMEMORY;

/// How a program shares the card with others. Here it never disturbs them.
inline constexpr DWORD DSSCL_PRIORITY = 2;

/// What a buffer can do; each control must be asked for when the buffer is created. All buffers are mixed by the
/// processor, and all cursors are exact.
inline constexpr DWORD DSBCAPS_LOCSOFTWARE = 0x00000008;
inline constexpr DWORD DSBCAPS_CTRLPAN = 0x00000040;
inline constexpr DWORD DSBCAPS_CTRLVOLUME = 0x00000080;
inline constexpr DWORD DSBCAPS_CTRLPOSITIONNOTIFY = 0x00000100;
inline constexpr DWORD DSBCAPS_GETCURRENTPOSITION2 = 0x00010000;

/// Flags of `Play`, of the answer of `GetStatus`, and of `Lock`.
inline constexpr DWORD DSBPLAY_LOOPING = 0x00000001;
inline constexpr DWORD DSBSTATUS_PLAYING = 0x00000001;
inline constexpr DWORD DSBSTATUS_BUFFERLOST = 0x00000002;
inline constexpr DWORD DSBSTATUS_LOOPING = 0x00000004;
inline constexpr DWORD DSBLOCK_ENTIREBUFFER = 0x00000002;

/// The one kind of samples: plain ones, 8 bits unsigned or 16 bits signed.
inline constexpr WORD WAVE_FORMAT_PCM = 1;

/// How samples are stored. `nBlockAlign` is the size of one frame in bytes: channels x bits / 8.
struct WAVEFORMATEX {
    WORD wFormatTag;
    WORD nChannels;
    DWORD nSamplesPerSec;
    DWORD nAvgBytesPerSec;
    WORD nBlockAlign;
    WORD wBitsPerSample;
    WORD cbSize;
};

/// What `CreateSoundBuffer` is to make. `dwSize` is the size of this structure; the last member is not used.
struct DSBUFFERDESC {
    DWORD dwSize;
    DWORD dwFlags;
    DWORD dwBufferBytes;
    DWORD dwReserved;
    WAVEFORMATEX* lpwfxFormat;
    GUID guid3DAlgorithm;
};

/// The event is set when the frame with the byte at `dwOffset` has been played.
struct DSBPOSITIONNOTIFY {
    DWORD dwOffset;
    HANDLE hEventNotify;
};

/// The interface that `IDirectSoundBuffer::QueryInterface` gives.
inline constexpr GUID IID_IDirectSoundNotify = {
    0xB0210783, 0x89CD, 0x11D0, {0xAF, 0x08, 0x00, 0xA0, 0xC9, 0x25, 0xCD, 0x16}};

/// The sound card. Any thread may call it and its buffers.
struct IDirectSound8 : IUnknown {
    /// A silent, stopped buffer at full volume; it belongs to the caller. DSERR_PRIOLEVELNEEDED before
    /// `SetCooperativeLevel`, DSERR_BADFORMAT for samples that cannot be played. `outer` must be null.
    virtual HRESULT CreateSoundBuffer(const DSBUFFERDESC* description, IDirectSoundBuffer** buffer,
                                      IUnknown* outer) = 0;
    /// A stopped buffer at the start of the same memory, with the settings that `original` has now.
    virtual HRESULT DuplicateSoundBuffer(IDirectSoundBuffer* original, IDirectSoundBuffer** duplicate) = 0;
    virtual HRESULT SetCooperativeLevel(HWND window, DWORD level) = 0;
    /// Tidies the card's memory; there is nothing to do here.
    virtual HRESULT Compact() = 0;

protected:
    ~IDirectSound8() = default;
};

/// A sound in memory with a place where it is played. Positions and sizes are in bytes, whole frames count.
struct IDirectSoundBuffer : IUnknown {
    /// IID_IDirectSoundNotify, for a buffer with DSBCAPS_CTRLPOSITIONNOTIFY; DSERR_NOINTERFACE for all else.
    virtual HRESULT QueryInterface(const GUID& id, void** object) = 0;
    /// DSBSTATUS_ flags.
    virtual HRESULT GetStatus(DWORD* status) = 0;
    /// Where it plays, and from where on it may be written; either pointer may be null.
    virtual HRESULT GetCurrentPosition(DWORD* play, DWORD* write) = 0;
    /// Gives memory to write to until `Unlock`; it holds what the buffer holds. A range that passes the end goes on at
    /// the start, in the second piece (null and 0 without one). One lock at a time. DSERR_BUFFERLOST: call
    /// `Restore`.
    virtual HRESULT Lock(DWORD offset, DWORD bytes, void** first, DWORD* firstBytes, void** second, DWORD* secondBytes,
                         DWORD flags) = 0;
    /// Takes over the first so many bytes of both pieces. Until then nothing of them is heard.
    virtual HRESULT Unlock(void* first, DWORD firstBytes, void* second, DWORD secondBytes) = 0;
    /// Goes on at the current position. A buffer that plays only takes the flags over.
    virtual HRESULT Play(DWORD reserved, DWORD priority, DWORD flags) = 0;
    /// Keeps the position. A buffer that ends by itself goes back to its start.
    virtual HRESULT Stop() = 0;
    virtual HRESULT SetCurrentPosition(DWORD position) = 0;
    /// Hundredths of a decibel, -10000 (silence) to 0 (as stored).
    virtual HRESULT SetVolume(LONG volume) = 0;
    /// Hundredths of a decibel by which one side is quieter: -10000 (left only) to 10000 (right only).
    virtual HRESULT SetPan(LONG pan) = 0;
    /// Takes new memory for a lost buffer; what it held is gone.
    virtual HRESULT Restore() = 0;

protected:
    ~IDirectSoundBuffer() = default;
};

/// The position events of a buffer; it shares the buffer's references.
struct IDirectSoundNotify : IUnknown {
    /// Replaces all positions; the array is copied. DSERR_INVALIDCALL while the buffer plays.
    virtual HRESULT SetNotificationPositions(DWORD count, const DSBPOSITIONNOTIFY* positions) = 0;

protected:
    ~IDirectSoundNotify() = default;
};

/// Opens the default card (null `device`). DSERR_NODRIVER without a card. `outer` must be null.
HRESULT DirectSoundCreate8(const GUID* device, IDirectSound8** sound, IUnknown* outer);
