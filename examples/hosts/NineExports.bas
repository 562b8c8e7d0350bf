Attribute VB_Name = "NineExports"
' The nine exports in VBA. The functions have the C calling convention: 64-bit Office calls them as they are declared here.
' 32-bit Office calls with another convention and needs a library in between.
'
' A path is in the ANSI code page. A view goes by value: on x64 the address of a copy is the same. A metafile that comes
' out is given back with DeleteEnhMetaFile.
Option Explicit

Public Type RECT
  Left As Long
  Top As Long
  Right As Long
  Bottom As Long
End Type

Public Declare PtrSafe Function vzMetaMake Lib "Hexlume.dll" (ByVal path As String, ByRef metafile As LongPtr, ByVal showDialogs As Long, ByVal halfWidthFont As Long) As Long
Public Declare PtrSafe Function vzReMetaMake Lib "Hexlume.dll" (ByVal path As String, ByRef metafile As LongPtr, ByVal halfWidthFont As Long, ByRef view As RECT, ByVal wholeTextClip As Long, ByVal showDialogs As Long) As Long
Public Declare PtrSafe Function vzRotMetaMake Lib "Hexlume.dll" (ByRef metafile As LongPtr) As Long
Public Declare PtrSafe Function vzFullSizeMetaMake Lib "Hexlume.dll" (ByVal path As String, ByRef metafile As LongPtr, ByVal showDialogs As Long, ByVal halfWidthFont As Long) As Long
Public Declare PtrSafe Function vzDXFMetaMake Lib "Hexlume.dll" (ByVal path As String, ByRef metafile As LongPtr, ByVal showDialogs As Long, ByVal halfWidthFont As Long, ByVal monochrome As Long) As Long
Public Declare PtrSafe Function vzDXFReMetaMake Lib "Hexlume.dll" (ByVal path As String, ByRef metafile As LongPtr, ByVal halfWidthFont As Long, ByRef view As RECT, ByVal wholeTextClip As Long, ByVal showDialogs As Long, ByVal monochrome As Long) As Long
Public Declare PtrSafe Function vzDXFRotMetaMake Lib "Hexlume.dll" (ByRef metafile As LongPtr, ByVal monochrome As Long) As Long
Public Declare PtrSafe Function vzDXFFullSizeMetaMake Lib "Hexlume.dll" (ByVal path As String, ByRef metafile As LongPtr, ByVal showDialogs As Long, ByVal halfWidthFont As Long, ByVal monochrome As Long) As Long
Public Declare PtrSafe Function vzDXFSetFontMode Lib "Hexlume.dll" (ByVal mode As Byte) As Byte

Public Declare PtrSafe Function CopyEnhMetaFileA Lib "gdi32" (ByVal metafile As LongPtr, ByVal path As String) As LongPtr
Public Declare PtrSafe Function DeleteEnhMetaFile Lib "gdi32" (ByVal metafile As LongPtr) As Long

' Converts a drawing to a metafile. Returns 0, or the code that hexlume.h explains.
Public Function ConvertDrawing(ByVal drawing As String, ByVal target As String) As Long
  Dim metafile As LongPtr
  ConvertDrawing = vzDXFMetaMake(drawing, metafile, 0, 0, 0)
  If metafile = 0 Then Exit Function
  DeleteEnhMetaFile CopyEnhMetaFileA(metafile, target)
  DeleteEnhMetaFile metafile
End Function
