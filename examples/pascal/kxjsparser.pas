{ KxJsParser for Free Pascal: the declarations of the C interface, and two classes over them.

  The declarations follow the C headers, kxjsparser.h, function by function; what each does, and on
  which thread, is written there. TKxHost and TKxColumns are for everyday work: they raise an
  exception where a formula fails, and their texts are UnicodeString.

    Host := TKxHost.Create;
    Host.SetDouble('PRICE', 12.5);
    WriteLn(Host.Evaluate(KxConvert('ROUND(PRICE*1.19,2)'))); }
unit kxjsparser;

{$mode objfpc}{$H+}
{$packrecords c}
{$linklib KxJsParser}

interface

uses
  ctypes, SysUtils;

const
  KXJS_OK = 0;
  KXJS_RESULT_NAN = 1;
  KXJS_FORMULA_FAILED = 2;
  KXJS_ENDED = 3;
  KXJS_NOT_FOUND = 4;
  KXJS_REFUSED = 5;
  KXJS_NOT_COMPILED = 6;
  KXJS_NULL_ARGUMENT = 16;
  KXJS_BAD_ARGUMENT = 17;
  KXJS_BAD_HANDLE = 18;
  KXJS_WRONG_THREAD = 19;
  KXJS_INVALID_UTF8 = 20;
  KXJS_TOO_LONG = 21;
  KXJS_BUSY = 22;
  KXJS_NO_MEMORY = 32;
  KXJS_NO_WORKER = 33;
  KXJS_SYSTEM_ERROR = 34;
  KXJS_INTERNAL_ERROR = 35;

type
  kxjs_status = cint32;
  { Handles of different kinds are different types, as in C. }
  pkxjs_text = type Pointer;
  pkxjs_texts = type Pointer;
  pkxjs_host = type Pointer;
  pkxjs_columns = type Pointer;
  pcsize = ^csize_t;

  kxjs_failure_record = record
    struct_size: csize_t;
    kind: cint32;
    line: cint32;
    column: cint32;
    end_column: cint32;
    is_in_call: cint32;
    frame_count: cint32;
  end;

  kxjs_column_failure_record = record
    struct_size: csize_t;
    number: csize_t;
    line: cint32;
    column: cint32;
    end_column: cint32;
    reserved: cint32;
  end;

  kxjs_span_utf16 = record
    data: PWideChar;
    length: csize_t;
  end;
  pkxjs_span_utf16 = ^kxjs_span_utf16;

function kxjs_status_text(status: kxjs_status): PAnsiChar; cdecl; external;
function kxjs_version: cint32; cdecl; external;
function kxjs_version_text: PAnsiChar; cdecl; external;

function kxjs_text_create(out text: pkxjs_text): kxjs_status; cdecl; external;
function kxjs_text_free(text: pkxjs_text): kxjs_status; cdecl; external;
function kxjs_text_utf16(text: pkxjs_text; out data: PWideChar;
  out length: csize_t): kxjs_status; cdecl; external;

function kxjs_texts_create(out texts: pkxjs_texts): kxjs_status; cdecl; external;
function kxjs_texts_free(texts: pkxjs_texts): kxjs_status; cdecl; external;
function kxjs_texts_utf16(texts: pkxjs_texts; out data: PWideChar; out offsets: pcsize;
  out count: csize_t): kxjs_status; cdecl; external;

function kxjs_convert_utf16(formula: PWideChar; length: csize_t;
  java_script: pkxjs_text): kxjs_status; cdecl; external;
function kxjs_extract_utf16(source: PWideChar; length: csize_t; time_limit_ms: cint64;
  isolation: Pointer; names: pkxjs_texts; error: pkxjs_text): kxjs_status; cdecl; external;

function kxjs_host_create(out host: pkxjs_host): kxjs_status; cdecl; external;
function kxjs_host_create_isolated(isolation: Pointer; out host: pkxjs_host;
  error: pkxjs_text): kxjs_status; cdecl; external;
function kxjs_host_free(host: pkxjs_host): kxjs_status; cdecl; external;
function kxjs_host_initialize(host: pkxjs_host): kxjs_status; cdecl; external;
function kxjs_host_reset(host: pkxjs_host): kxjs_status; cdecl; external;
function kxjs_host_set_int32_utf16(host: pkxjs_host; key: PWideChar; key_length: csize_t;
  value: cint32): kxjs_status; cdecl; external;
function kxjs_host_set_double_utf16(host: pkxjs_host; key: PWideChar; key_length: csize_t;
  value: cdouble): kxjs_status; cdecl; external;
function kxjs_host_set_bool_utf16(host: pkxjs_host; key: PWideChar; key_length: csize_t;
  value: cint32): kxjs_status; cdecl; external;
function kxjs_host_set_text_utf16(host: pkxjs_host; key: PWideChar; key_length: csize_t;
  value: PWideChar; value_length: csize_t): kxjs_status; cdecl; external;
function kxjs_host_parse_utf16(host: pkxjs_host; source: PWideChar; source_length: csize_t;
  out script: cint32; error: pkxjs_text): kxjs_status; cdecl; external;
function kxjs_host_execute(host: pkxjs_host; script: cint32; result_text: pkxjs_text;
  error: pkxjs_text): kxjs_status; cdecl; external;
function kxjs_host_evaluate_utf16(host: pkxjs_host; source: PWideChar; source_length: csize_t;
  result_text: pkxjs_text; error: pkxjs_text): kxjs_status; cdecl; external;
function kxjs_host_failure(host: pkxjs_host; var failure: kxjs_failure_record;
  message: pkxjs_text; source_line: pkxjs_text): kxjs_status; cdecl; external;
function kxjs_host_set_time_limit(host: pkxjs_host; milliseconds: cint64): kxjs_status;
  cdecl; external;
function kxjs_host_set_memory_limit(host: pkxjs_host; bytes: cuint64): kxjs_status;
  cdecl; external;
function kxjs_host_terminate(host: pkxjs_host): kxjs_status; cdecl; external;

function kxjs_columns_create(host: pkxjs_host; out columns: pkxjs_columns): kxjs_status;
  cdecl; external;
function kxjs_columns_free(columns: pkxjs_columns): kxjs_status; cdecl; external;
function kxjs_columns_bind_double_utf16(columns: pkxjs_columns; name: PWideChar;
  name_length: csize_t; values: pcdouble; count: csize_t): kxjs_status; cdecl; external;
function kxjs_columns_bind_int32_utf16(columns: pkxjs_columns; name: PWideChar;
  name_length: csize_t; values: pcint32; count: csize_t): kxjs_status; cdecl; external;
function kxjs_columns_bind_spans_utf16(columns: pkxjs_columns; name: PWideChar;
  name_length: csize_t; values: pkxjs_span_utf16; count: csize_t): kxjs_status; cdecl; external;
function kxjs_columns_compile_utf16(columns: pkxjs_columns; source: PWideChar;
  source_length: csize_t; error: pkxjs_text): kxjs_status; cdecl; external;
function kxjs_columns_evaluate_double(columns: pkxjs_columns; results: pcdouble; count: csize_t;
  records: pcsize; error: pkxjs_text): kxjs_status; cdecl; external;
function kxjs_columns_failure_count(columns: pkxjs_columns; out count: csize_t): kxjs_status;
  cdecl; external;
function kxjs_columns_failure(columns: pkxjs_columns; index: csize_t;
  var failure: kxjs_column_failure_record; error: pkxjs_text;
  message: pkxjs_text): kxjs_status; cdecl; external;

type
  { A formula failed, or a call was wrong. Line and Column are those of the source, or 0. }
  EKxError = class(Exception)
  public
    Status: kxjs_status;
    Line: Integer;
    Column: Integer;
  end;

  { A script host. To be used on the thread that made it; Terminate works on any. }
  TKxHost = class
  private
    FHandle: pkxjs_host;
    FResult: pkxjs_text;
    FError: pkxjs_text;
    function Checked(Status: kxjs_status): UnicodeString;
  public
    { A host with the built-in functions. }
    constructor Create;
    destructor Destroy; override;
    procedure SetInteger(const Name: UnicodeString; Value: LongInt);
    procedure SetDouble(const Name: UnicodeString; Value: Double);
    procedure SetBoolean(const Name: UnicodeString; Value: Boolean);
    procedure SetText(const Name, Value: UnicodeString);
    { The number of the compiled script, for Execute. }
    function Parse(const JavaScript: UnicodeString): LongInt;
    function Execute(Script: LongInt): UnicodeString;
    function Evaluate(const JavaScript: UnicodeString): UnicodeString;
    procedure SetTimeLimit(Milliseconds: Int64);
    procedure Terminate;
    property Handle: pkxjs_host read FHandle;
  end;

  { One formula over the records of a table. The arrays are read where they are: they stay the
    caller's, and must not change their length before the last Evaluate. }
  TKxColumns = class
  private
    FHost: TKxHost;
    FHandle: pkxjs_columns;
    FError: pkxjs_text;
    procedure Check(Status: kxjs_status);
  public
    constructor Create(Host: TKxHost);
    destructor Destroy; override;
    procedure Bind(const Name: UnicodeString; const Values: array of Double);
    procedure Bind(const Name: UnicodeString; const Values: array of LongInt);
    procedure Compile(const JavaScript: UnicodeString);
    { Fills Results, and returns how many records failed; those are NaN. }
    function Evaluate(var Results: array of Double): SizeInt;
    { The number of a failing record, and its error text. }
    function Failure(Index: SizeInt; out Error: UnicodeString): SizeInt;
  end;

{ A formula of the older language as JavaScript. }
function KxConvert(const Formula: UnicodeString): UnicodeString;

implementation

function TextOf(Text: pkxjs_text): UnicodeString;
var
  Data: PWideChar;
  Length: csize_t;
begin
  Result := '';
  if kxjs_text_utf16(Text, Data, Length) = KXJS_OK then
    SetString(Result, Data, Length);
end;

procedure Fail(Status: kxjs_status; const Message: string; Line, Column: Integer);
var
  Error: EKxError;
begin
  Error := EKxError.Create(Message);
  Error.Status := Status;
  Error.Line := Line;
  Error.Column := Column;
  raise Error;
end;

procedure CheckCall(Status: kxjs_status);
begin
  if Status <> KXJS_OK then
    Fail(Status, kxjs_status_text(Status), 0, 0);
end;

function KxConvert(const Formula: UnicodeString): UnicodeString;
var
  Text: pkxjs_text;
begin
  CheckCall(kxjs_text_create(Text));
  try
    CheckCall(kxjs_convert_utf16(PWideChar(Formula), Length(Formula), Text));
    Result := TextOf(Text);
  finally
    kxjs_text_free(Text);
  end;
end;

{ TKxHost }

constructor TKxHost.Create;
begin
  CheckCall(kxjs_text_create(FResult));
  CheckCall(kxjs_text_create(FError));
  CheckCall(kxjs_host_create(FHandle));
  CheckCall(kxjs_host_initialize(FHandle));
end;

destructor TKxHost.Destroy;
begin
  kxjs_host_free(FHandle);
  kxjs_text_free(FError);
  kxjs_text_free(FResult);
  inherited Destroy;
end;

function TKxHost.Checked(Status: kxjs_status): UnicodeString;
var
  Failure: kxjs_failure_record;
begin
  case Status of
    KXJS_OK: Exit(TextOf(FResult));
    KXJS_FORMULA_FAILED:
      begin
        Failure.struct_size := SizeOf(Failure);
        CheckCall(kxjs_host_failure(FHandle, Failure, FError, nil));
        Fail(Status, UTF8Encode(TextOf(FError)), Failure.line, Failure.column);
      end;
    KXJS_RESULT_NAN: Fail(Status, UTF8Encode(TextOf(FError)), 0, 0);
  else
    CheckCall(Status);
  end;
  Result := '';
end;

procedure TKxHost.SetInteger(const Name: UnicodeString; Value: LongInt);
begin
  CheckCall(kxjs_host_set_int32_utf16(FHandle, PWideChar(Name), Length(Name), Value));
end;

procedure TKxHost.SetDouble(const Name: UnicodeString; Value: Double);
begin
  CheckCall(kxjs_host_set_double_utf16(FHandle, PWideChar(Name), Length(Name), Value));
end;

procedure TKxHost.SetBoolean(const Name: UnicodeString; Value: Boolean);
begin
  CheckCall(kxjs_host_set_bool_utf16(FHandle, PWideChar(Name), Length(Name), Ord(Value)));
end;

procedure TKxHost.SetText(const Name, Value: UnicodeString);
begin
  CheckCall(kxjs_host_set_text_utf16(FHandle, PWideChar(Name), Length(Name), PWideChar(Value),
    Length(Value)));
end;

function TKxHost.Parse(const JavaScript: UnicodeString): LongInt;
begin
  Checked(kxjs_host_parse_utf16(FHandle, PWideChar(JavaScript), Length(JavaScript), Result,
    FError));
end;

function TKxHost.Execute(Script: LongInt): UnicodeString;
begin
  Result := Checked(kxjs_host_execute(FHandle, Script, FResult, FError));
end;

function TKxHost.Evaluate(const JavaScript: UnicodeString): UnicodeString;
begin
  Result := Checked(kxjs_host_evaluate_utf16(FHandle, PWideChar(JavaScript), Length(JavaScript),
    FResult, FError));
end;

procedure TKxHost.SetTimeLimit(Milliseconds: Int64);
begin
  CheckCall(kxjs_host_set_time_limit(FHandle, Milliseconds));
end;

procedure TKxHost.Terminate;
begin
  CheckCall(kxjs_host_terminate(FHandle));
end;

{ TKxColumns }

constructor TKxColumns.Create(Host: TKxHost);
begin
  FHost := Host;
  CheckCall(kxjs_text_create(FError));
  CheckCall(kxjs_columns_create(Host.Handle, FHandle));
end;

destructor TKxColumns.Destroy;
begin
  kxjs_columns_free(FHandle);
  kxjs_text_free(FError);
  inherited Destroy;
end;

procedure TKxColumns.Check(Status: kxjs_status);
begin
  if (Status = KXJS_FORMULA_FAILED) or (Status = KXJS_ENDED) then
    Fail(Status, UTF8Encode(TextOf(FError)), 0, 0);
  CheckCall(Status);
end;

procedure TKxColumns.Bind(const Name: UnicodeString; const Values: array of Double);
begin
  CheckCall(kxjs_columns_bind_double_utf16(FHandle, PWideChar(Name), Length(Name), @Values,
    Length(Values)));
end;

procedure TKxColumns.Bind(const Name: UnicodeString; const Values: array of LongInt);
begin
  CheckCall(kxjs_columns_bind_int32_utf16(FHandle, PWideChar(Name), Length(Name), @Values,
    Length(Values)));
end;

procedure TKxColumns.Compile(const JavaScript: UnicodeString);
begin
  Check(kxjs_columns_compile_utf16(FHandle, PWideChar(JavaScript), Length(JavaScript), FError));
end;

function TKxColumns.Evaluate(var Results: array of Double): SizeInt;
var
  Failures: csize_t;
begin
  Check(kxjs_columns_evaluate_double(FHandle, @Results, Length(Results), nil, FError));
  CheckCall(kxjs_columns_failure_count(FHandle, Failures));
  Result := Failures;
end;

function TKxColumns.Failure(Index: SizeInt; out Error: UnicodeString): SizeInt;
var
  Found: kxjs_column_failure_record;
begin
  Found.struct_size := SizeOf(Found);
  CheckCall(kxjs_columns_failure(FHandle, Index, Found, nil, FError));
  Error := TextOf(FError);
  Result := Found.number;
end;

end.
