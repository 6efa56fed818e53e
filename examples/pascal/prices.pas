{ A price list in Free Pascal: one formula that a user wrote, for one order and for a whole table. }
program prices;

{$mode objfpc}{$H+}
{$codepage UTF8}

uses
  {$ifdef unix}cwstring,{$endif}
  SysUtils, Math, kxjsparser;

const
  Formula = 'ROUND(PRICE*QTY*IIF(QTY>9,0.9,1),2)';

procedure OneOrder(Host: TKxHost);
var
  Script: LongInt;
begin
  Host.SetText('NAME', 'Jörg');
  Host.SetDouble('PRICE', 12.5);
  Host.SetInteger('QTY', 3);
  Script := Host.Parse(KxConvert('NAME+'' pays ''+' + Formula));
  WriteLn(UTF8Encode(Host.Execute(Script)));
  Host.SetInteger('QTY', 20);
  WriteLn(UTF8Encode(Host.Execute(Script)));
end;

procedure Mistakes(Host: TKxHost);
begin
  try
    Host.Evaluate('PRICE * ' + LineEnding + 'RATE');
  except
    on Error: EKxError do
      WriteLn(Format('line %d, column %d: %s', [Error.Line, Error.Column, Error.Message]));
  end;
  Host.SetTimeLimit(50);
  try
    Host.Evaluate('for (;;);');
  except
    on Error: EKxError do WriteLn(Error.Message);
  end;
  Host.SetTimeLimit(0);
end;

procedure WholeTable(Host: TKxHost);
const
  Records = 100000;
var
  Columns: TKxColumns;
  Prices, Totals: array of Double;
  Quantities: array of LongInt;
  i: Integer;
begin
  SetLength(Prices, Records);
  SetLength(Quantities, Records);
  SetLength(Totals, Records);
  for i := 0 to Records - 1 do
  begin
    Prices[i] := i / 100;
    Quantities[i] := i mod 20;
  end;
  Columns := TKxColumns.Create(Host);
  try
    Columns.Bind('PRICE', Prices);
    Columns.Bind('QTY', Quantities);
    Columns.Compile('PRICE*QTY*IIF(QTY>9,0.9,1)');
    WriteLn(Columns.Evaluate(Totals), ' of ', Records, ' records failed');
    WriteLn('in all: ', FormatFloat('0.00', Sum(Totals)));
  finally
    Columns.Free;
  end;
end;

var
  Host: TKxHost;
begin
  { V8 divides by zero as IEEE 754 says, and raises no exception. }
  SetExceptionMask([exInvalidOp, exDenormalized, exZeroDivide, exOverflow, exUnderflow, exPrecision]);
  DefaultFormatSettings.DecimalSeparator := '.';
  Host := TKxHost.Create;
  try
    OneOrder(Host);
    Mistakes(Host);
    WholeTable(Host);
  finally
    Host.Free;
  end;
end.
