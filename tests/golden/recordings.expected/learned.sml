// Establish Communications Request
EstablishCommunicationsRequest: S1F13 W // H<-E
  <L[2]
    <A[6] "ZE3000"> // MDLN
    <A[6] "V04R21"> // SOFTREV
  >
.

// Establish Communications Request Acknowledge
EstablishCommunicationsRequestAcknowledge: S1F14 // H->E
  <L[2]
    <B[1] 0> // COMMACK
    <L[0]
    >
  >
.

// Request ON-LINE
RequestONLINE: S1F17 W // H->E
.

// ON-LINE Acknowledge
ONLINEAcknowledge: S1F18 // H<-E
  <B[1] 0> // ONLACK
.

// New Equipment Constant Send
NewEquipmentConstantSend: S2F15 W // H->E
  <L[1]
    <L[2]
      <U4[1] 2004> // ECID
      <F4[1] 62.5> // ECV
    >
  >
.

// New Equipment Constant Acknowledge
NewEquipmentConstantAcknowledge: S2F16 // H<-E
  <B[1] 0> // EAC
.

// Enable/Disable Event Report
EnableDisableEventReport: S2F37 W // H->E
  <L[2]
    <BOOLEAN[1] True> // CEED
    <L[2]
      <U4[1] 4001> // CEID
      <U4[1] 4010> // CEID2
    >
  >
.

// Enable/Disable Event Report Acknowledge
EnableDisableEventReportAcknowledge: S2F38 // H<-E
  <B[1] 0> // ERACK
.

// Host Command Send
HostCommandSend: S2F41 W // H->E
  <L[2]
    <A[9] "PP-SELECT"> // RCMD
    <L[4]
      <L[2]
        <A[4] "PPID"> // CPNAME
        <A[19] "OXIDE_MAIN_ETCH_A12"> // CPVAL
      >
      <L[2]
        <A[5] "LOTID"> // CPNAME2
        <A[16] "L260321A07      "> // CPVAL2
      >
      <L[2]
        <A[4] "PORT"> // CPNAME3
        <U1[1] 1> // CPVAL3
      >
      <L[2]
        <A[5] "SLOTS"> // CPNAME4
        <BOOLEAN[25] True True True True True True True True True True True True True True True True True True True True True True True True False> // CPVAL4
      >
    >
  >
.

// Host Command Send
HostCommandSend2: S2F41 W // H->E
  <L[2]
    <A[5] "START"> // RCMD
    <L[0]
    >
  >
.

// Host Command Acknowledge
HostCommandAcknowledge: S2F42 // H<-E
  <L[2]
    <B[1] 0> // HCACK
    <L[0]
    >
  >
.

// Alarm Report Send
AlarmReportSend: S5F1 W // H<-E
  <L[3]
    <B[1] 132> // ALCD
    <U4[1] 3011> // ALID
    <A[33] "PM1 reflected RF power over limit"> // ALTX
  >
.

// Alarm Report Acknowledge
AlarmReportAcknowledge: S5F2 // H->E
  <B[1] 0> // ACKC5
.

// Event Report Send
EventReportSend: S6F11 W // H<-E
  <L[3]
    <U4[1] 0> // DATAID
    <U4[1] 4001> // CEID
    <L[2]
      <L[2]
        <U4[1] 501> // RPTID
        <L[5]
          <U1[1] 1> // V
          <U1[1] 12> // V2
          <A[16] "L260321A07-12   "> // V3
          <U2[1] 3> // V4
          <I8[1] -184467> // V5
        >
      >
      <L[2]
        <U4[1] 502> // RPTID2
        <L[6]
          <F4[1] 15.2> // V6
          <U2[2] 1800 450> // V7
          <F4[2] 3.5 1.2> // V8
          <F4[4] 40 10.5 0 200> // V9
          <I2[2] -10 20> // V10
          <F8[1] 42.375> // V11
        >
      >
    >
  >
.

// Event Report Send
EventReportSend2: S6F11 W // H<-E
  <L[3]
    <U4[1] 0> // DATAID
    <U4[1] 4010> // CEID
    <L[1]
      <L[2]
        <U4[1] 510> // RPTID
        <L[5]
          <A[16] "L260321A07      "> // V
          <U8[1] 1844674407> // V2
          <I4[1] 86400> // V3
          <J[13] "NIGHT SHIFT 2"> // V4
          <L[2]
            <L[4]
              <U1[1] 1>
              <BOOLEAN[1] True>
              <L[2]
                <L[2]
                  <U1[1] 1>
                  <F4[1] 352.4>
                >
                <L[2]
                  <U1[1] 2>
                  <F4[1] 118.9>
                >
              >
              <A[6] "NORMAL">
            >
            <L[4]
              <U1[1] 2>
              <BOOLEAN[1] False>
              <L[0]
              >
              <A[11] "NOT STARTED">
            >
          >
        >
      >
    >
  >
.

// Event Report Acknowledge
EventReportAcknowledge: S6F12 // H->E
  <B[1] 0> // ACKC6
.

