// expect: %uD83D%uDE00
escape('\ud83d\ude00')
