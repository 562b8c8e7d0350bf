// The nine exports in C#: NineExports.exe DRAWING.dxf METAFILE.emf
//
// mcs NineExports.cs, or csc -define:WINDOWS NineExports.cs
using System;
using System.IO;
using System.Runtime.InteropServices;

static class Hexlume {
  const string Library = "hexlume";
#if WINDOWS
  const string Metafiles = "gdi32";
#else
  const string Metafiles = "hexlume";
#endif
  const CallingConvention C = CallingConvention.Cdecl;

  [StructLayout(LayoutKind.Sequential)]
  public struct RECT { public int left, top, right, bottom; }

  // A path is in the ANSI code page on Windows. A fault leaves all but vzMetaMake and vzDXFMetaMake as an exception.
  [DllImport(Library, CallingConvention = C, CharSet = CharSet.Ansi)]
  public static extern int vzMetaMake(string path, out IntPtr metafile, int showDialogs, int halfWidthFont);
  [DllImport(Library, CallingConvention = C, CharSet = CharSet.Ansi)]
  public static extern int vzReMetaMake(string path, out IntPtr metafile, int halfWidthFont, RECT view,
                                        int wholeTextClip, int showDialogs);
  [DllImport(Library, CallingConvention = C)]
  public static extern int vzRotMetaMake(out IntPtr metafile);
  [DllImport(Library, CallingConvention = C, CharSet = CharSet.Ansi)]
  public static extern int vzFullSizeMetaMake(string path, out IntPtr metafile, int showDialogs, int halfWidthFont);
  [DllImport(Library, CallingConvention = C, CharSet = CharSet.Ansi)]
  public static extern int vzDXFMetaMake(string path, out IntPtr metafile, int showDialogs, int halfWidthFont,
                                         int monochrome);
  [DllImport(Library, CallingConvention = C, CharSet = CharSet.Ansi)]
  public static extern int vzDXFReMetaMake(string path, out IntPtr metafile, int halfWidthFont, RECT view,
                                           int wholeTextClip, int showDialogs, int monochrome);
  [DllImport(Library, CallingConvention = C)]
  public static extern int vzDXFRotMetaMake(out IntPtr metafile, int monochrome);
  [DllImport(Library, CallingConvention = C, CharSet = CharSet.Ansi)]
  public static extern int vzDXFFullSizeMetaMake(string path, out IntPtr metafile, int showDialogs,
                                                 int halfWidthFont, int monochrome);
  [DllImport(Library, CallingConvention = C)]
  public static extern byte vzDXFSetFontMode(byte mode);

  [DllImport(Metafiles)]
  public static extern uint GetEnhMetaFileBits(IntPtr metafile, uint size, byte[] buffer);
  [DllImport(Metafiles)]
  public static extern int DeleteEnhMetaFile(IntPtr metafile);

  static int Main(string[] arguments) {
    IntPtr metafile;
    vzDXFSetFontMode(1);
    int code = vzDXFReMetaMake(arguments[0], out metafile, 0, new RECT { right = 100, bottom = 100 }, 0, 0, 0);
    if (code == 0) DeleteEnhMetaFile(metafile);
    code = vzDXFMetaMake(arguments[0], out metafile, 0, 0, 0);
    if (code != 0) return code;
    var bytes = new byte[GetEnhMetaFileBits(metafile, 0, null)];
    GetEnhMetaFileBits(metafile, (uint)bytes.Length, bytes);
    DeleteEnhMetaFile(metafile);
    File.WriteAllBytes(arguments[1], bytes);
    return 0;
  }
}
